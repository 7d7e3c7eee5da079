// The softphone's records as clients see them. An object keeps the record as
// it was when the client asked for it.
#pragma once

#include "desk/softphone/phone_object.h"

namespace desk::softphone {

class UserObject final : public PhoneObject<UserObject> {
public:
    explicit UserObject(Phone& phone) noexcept : PhoneObject(phone, L"User", userId) {}
    static const std::vector<MemberRow<UserObject>>& members();
};

class HistoryItem final : public PhoneObject<HistoryItem> {
public:
    HistoryItem(Phone& phone, HistoryRecord record)
        : PhoneObject(phone, L"HistoryItem", historyItemId), record(std::move(record))
    {}
    static const std::vector<MemberRow<HistoryItem>>& members();

    const HistoryRecord record;
};

class Entry final : public PhoneObject<Entry> {
public:
    Entry(Phone& phone, EntryRecord record) : PhoneObject(phone, L"Entry", GUID_NULL), record(std::move(record)) {}
    static const std::vector<MemberRow<Entry>>& members();

    const EntryRecord record;
};

class Call final : public PhoneObject<Call> {
public:
    Call(Phone& phone, CallRecord record) : PhoneObject(phone, L"Call", GUID_NULL), record(std::move(record)) {}
    static const std::vector<MemberRow<Call>>& members();

    const CallRecord record;
};

}
