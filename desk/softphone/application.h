// The softphone's lasting objects: the application and what hangs on it. A
// client that asks twice gets the same object twice.
#pragma once

#include "desk/softphone/records.h"

namespace desk::softphone {

class Line final : public EventObject<Line> {
public:
    explicit Line(Phone& phone) noexcept : EventObject(phone, L"Line", {lineId, lineClassId, lineEventsId}) {}
    static const std::vector<MemberRow<Line>>& members();
};

class History final : public EventObject<History> {
public:
    explicit History(Phone& phone) noexcept
        : EventObject(phone, L"History", {historyId, historyClassId, historyEventsId})
    {}
    static const std::vector<MemberRow<History>>& members();
};

class AddressBook final : public EventObject<AddressBook> {
public:
    explicit AddressBook(Phone& phone) noexcept
        : EventObject(phone, L"AddressBook", {addressBookId, addressBookClassId, addressBookEventsId})
    {}
    static const std::vector<MemberRow<AddressBook>>& members();
};

class Application final : public EventObject<Application> {
public:
    explicit Application(Phone& phone);
    static const std::vector<MemberRow<Application>>& members();

    const automation::ComPtr<UserObject> user;
    const automation::ComPtr<Line> line;
    const automation::ComPtr<History> history;
    const automation::ComPtr<AddressBook> addressBook;
};

// What the line is doing, for clients and for the window: "Idle",
// "Incoming call" or "Outgoing call".
std::wstring lineState(const Phone& phone);

}
