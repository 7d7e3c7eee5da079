#include "outlook/absence.h"

#include "automation/array.h"
#include "common/error_trap.h"
#include "common/phone_number.h"
#include "outlook/telephone_fields.h"

#include <algorithm>

namespace {

using automation::Object;
using automation::Value;

// A table cuts texts at 255 bytes, which may be 127 characters.
constexpr std::size_t longestText = 127;
// What stands in the column of a row whose item has no such field.
constexpr SCODE notFound = static_cast<SCODE>(0x8004010FL);
constexpr std::int32_t rowsAtOnce = 500;

// A column that takes longer has been asked about, in milliseconds.
constexpr DWORD longestUnasked = 1000;

// False when somebody was asked about one of them: each of the others would be asked about, too.
bool addTelephoneColumns(OutlookSession& session, const Object& columns)
{
    session.tablesAreGuarded = true; // unless all of them are taken without a question
    for (const wchar_t* field : telephoneFields) {
        const DWORD start = GetTickCount();
        columns.call(L"Add", {field});
        if (GetTickCount() - start > longestUnasked) return false;
    }
    session.tablesAreGuarded = false;
    return true;
}

// All contacts with their telephone fields; empty when Outlook guards its tables.
Object telephoneTable(OutlookSession& session)
{
    const Object contacts = session.OutlookContacts;
    const Object table = contacts.get(L"GetTable").object().sharing(session.names.table);
    const Object columns = table.get(L"Columns").object().sharing(session.names.columns);
    columns.call(L"RemoveAll");
    return addTelephoneColumns(session, columns) ? table : Object();
}

// Whether the value leaves open that the field is the sought number.
bool mayBe(const Value& value, const std::wstring& sought)
{
    const bool isAbsent = value.type() == VT_NULL ||
                          (value.type() == VT_ERROR && V_ERROR(&value.variant()) == notFound);
    const std::wstring text = isAbsent ? L"" : value.text();
    return text.size() >= longestText || StripPhoneNumber(text) == sought;
}

// Whether every row that the table counts was read, and none may be the sought number's.
bool allRowsDiffer(const Object& table, const std::wstring& sought)
{
    const std::int32_t rows = table.get(L"GetRowCount").int32();
    // Outlook 2007 refuses a block larger than the whole table.
    const std::int32_t block = std::min(rows, rowsAtOnce);
    std::int32_t read = 0;
    while (read < rows) {
        const std::vector<Value> values = automation::elementsOf(table.get(L"GetArray", {block}));
        if (values.empty() || values.size() % telephoneFields.size() != 0) return false;
        const auto leavesItOpen = [&](const Value& value) { return mayBe(value, sought); };
        if (std::any_of(values.begin(), values.end(), leavesItOpen)) return false;
        read += static_cast<std::int32_t>(values.size() / telephoneFields.size());
    }
    return true;
}

}

bool absenceIsProved(OutlookSession& session, const std::wstring& sought)
{
    bool proved = false;
    trapErrors(L"absenceIsProved", [&] {
        if (session.tablesAreGuarded || sought.size() >= longestText) return;
        const Object table = telephoneTable(session);
        // A table shows what comes while it is read: it may be longer by now.
        proved = table && allRowsDiffer(table, sought) && table.get(L"EndOfTable").truth();
    });
    return proved;
}
