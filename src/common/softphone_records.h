// The softphone's records, as the program reads them: a call, an entry of the
// address book, an item of the call history. Nothing is read before it is asked
// for; each question is one call to the softphone and throws AutomationError when
// that fails. Only this file and its source know what the members are called.
#pragma once

#include "automation/object.h"
#include "common/softphone_id.h"

#include <string>
#include <utility>

namespace hublink {

// What every record says about the other party.
class SoftphoneRecord {
public:
    std::wstring number() const;
    std::wstring lastName() const;
    std::wstring firstName() const;

protected:
    explicit SoftphoneRecord(automation::Object object) : object_(std::move(object)) {}

    automation::Object object_;
};

class SoftphoneCall : public SoftphoneRecord {
public:
    explicit SoftphoneCall(automation::Object call) : SoftphoneRecord(std::move(call)) {}

    bool isIncoming() const;
    std::wstring destinationNumber() const; // to whom it was forwarded, "" for nobody
};

class SoftphoneEntry : public SoftphoneRecord {
public:
    explicit SoftphoneEntry(automation::Object entry) : SoftphoneRecord(std::move(entry)) {}

    SoftphoneId id() const; // two calls
};

// What the groupware keeps of a call is handed on as the softphone has it.
class SoftphoneHistoryItem : public SoftphoneRecord {
public:
    explicit SoftphoneHistoryItem(automation::Object item) : SoftphoneRecord(std::move(item)) {}

    SoftphoneId id() const; // two calls
    automation::Value incoming() const;
    automation::Value beginDate() const;
    automation::Value endDate() const;
    automation::Value state() const;        // a number of the softphone's own
    automation::Value acknowledged() const; // 1 when it was
};

}
