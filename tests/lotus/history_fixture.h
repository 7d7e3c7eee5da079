// What the tests of the call history share: calls, and what becomes of them.
#pragma once

#include "each_call.h"
#include "lotus/history.h"
#include "support/softphone_record.h"

namespace hublink {

class HistoryFixture : public LotusDocumentsFixture {
protected:
    using Members = std::map<std::wstring, automation::Value>;

    static constexpr const wchar_t* refresh = L"NotesUIWorkspace.ViewRefresh method";

    // An answered outgoing call; a test says what is otherwise.
    static Members call(const wchar_t* number)
    {
        return {{L"Number", number},
                {L"LastName", L"Softphone-Last"},
                {L"FirstName", L"Softphone-First"},
                {L"State", std::int32_t{3}},
                {L"Incoming", false},
                {L"Acknowledged", std::int16_t{0}},
                {L"BeginDate", automation::Value::date(45000.25)},
                {L"EndDate", automation::Value::date(45000.5)}};
    }

    static Members with(Members members, const wchar_t* name, automation::Value value)
    {
        members[name] = std::move(value);
        return members;
    }

    std::wstring create(const Members& members)
    {
        return CreateHistoryDocument(session, SoftphoneHistoryItem(support::record(members)));
    }

    // The items of the last document; nothing when none was saved.
    Fields saved()
    {
        const auto all = documents(historyBase);
        return all.empty() ? Fields{} : itemsOf(all.back());
    }

    std::wstring kind() { return field(documents(historyBase).back(), L"Kind"); }

    std::wstring kindOf(bool incoming, std::int32_t state, std::int16_t acknowledged)
    {
        Members members = call(L"");
        members[L"Incoming"] = incoming;
        members[L"State"] = state;
        members[L"Acknowledged"] = acknowledged;
        EXPECT_FALSE(create(members).empty());
        return kind();
    }

    void addMarc() { add(L"names.nsf", L"Form=Person\nLastName=Durand\nFirstName=Marc\nOfficePhoneNumber=0123"); }

    // What was appended to the call's document, in order.
    Lines appended()
    {
        constexpr std::wstring_view append = L"NotesDocument.AppendItemValue method (";
        Lines lines;
        for (const std::wstring& line : record())
            if (line.starts_with(append)) lines.push_back(line.substr(append.size()));
        return lines;
    }
};

}
