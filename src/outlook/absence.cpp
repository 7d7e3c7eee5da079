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

Object telephoneTable(const OutlookSession& session)
{
    const Object contacts = session.OutlookContacts;
    const Object table = contacts.get(L"GetTable").object().sharing(session.names.table);
    const Object columns = table.get(L"Columns").object().sharing(session.names.columns);
    columns.call(L"RemoveAll");
    for (const wchar_t* field : telephoneFields) columns.call(L"Add", {field});
    return table;
}

// Whether the value leaves open that the field is the sought number.
bool mayBe(const Value& value, const std::wstring& sought)
{
    const bool isAbsent = value.type() == VT_NULL ||
                          (value.type() == VT_ERROR && V_ERROR(&value.variant()) == notFound);
    const std::wstring text = isAbsent ? L"" : value.text();
    return text.size() >= longestText || StripPhoneNumber(text) == sought;
}

}

bool absenceIsProved(const OutlookSession& session, const std::wstring& sought)
{
    bool proved = false;
    trapErrors(L"absenceIsProved", [&] {
        if (sought.size() >= longestText) return;
        const Object table = telephoneTable(session);
        const std::int32_t rows = table.get(L"GetRowCount").int32();
        // Outlook 2007 refuses a block larger than the whole table.
        const std::int32_t block = std::min(rows, rowsAtOnce);
        std::int32_t read = 0;
        while (read < rows) {
            const std::vector<Value> values = automation::elementsOf(table.get(L"GetArray", {block}));
            if (values.empty() || values.size() % telephoneFields.size() != 0) return;
            const auto leavesItOpen = [&](const Value& value) { return mayBe(value, sought); };
            if (std::any_of(values.begin(), values.end(), leavesItOpen)) return;
            read += static_cast<std::int32_t>(values.size() / telephoneFields.size());
        }
        proved = read == rows;
    });
    return proved;
}
