#include "outlook_mirror.h"

#include "log_lines.h"
#include "softphone_records.h"

#include "common/phone_number.h"
#include "desk/common/control_pipe.h"
#include "desk/common/store_file.h"
#include "desk/common/text.h"

#include <stdexcept>

namespace deaths {

namespace {

using desk::StoreRecord;

constexpr const wchar_t* callType = L"Phone Call";
constexpr const wchar_t* logType = L"Pavex Connector";

std::wstring entryId(int n)
{
    const std::wstring digits = std::to_wstring(n);
    return std::wstring(48 - digits.size(), L'A') + digits;
}

const std::wstring mappedContactId = entryId(7);

// Of the n-th call, when it is mirrored from the start.
std::wstring mirroredId(std::size_t n)
{
    return entryId(100 + static_cast<int>(n));
}

std::wstring valueOf(const StoreRecord& record, const wchar_t* field)
{
    const std::wstring* value = record.find(field);
    return value ? *value : L"";
}

std::vector<StoreRecord> journal(const wchar_t* type)
{
    std::vector<StoreRecord> found;
    for (const StoreRecord& record : desk::parseStore(desk::ask(L"outlook", L"journal")))
        if (valueOf(record, L"Type") == type) found.push_back(record);
    return found;
}

Mirror mirror(const StoreRecord& record, const std::wstring& key)
{
    Mirror made{L"", key, L""};
    for (const auto& [name, value] : record.fields) {
        if (name == L"EntryID") made.id = value;
        else made.content += name + L"=" + value + L"\n";
    }
    return made;
}

}

std::wstring OutlookMirror::startingRecords() const
{
    std::wstring text;
    for (const auto& [number, id] :
         {std::pair(std::wstring(knownNumber), entryId(3)), std::pair(std::wstring(L"01.00.05"), entryId(5)),
          std::pair(std::wstring(mappedNumber), mappedContactId)})
        text += L"[contact]\nEntryID=" + id + L"\nFirstName=Known\nLastName=Contact" + number.substr(5) +
                L"\nBusinessTelephoneNumber=" + number + L"\n";
    for (std::size_t n = 0; n < deaths::calls().size(); ++n) {
        const Call& call = deaths::calls()[n];
        if (!call.isMirrored) continue;
        text += L"[journal]\nEntryID=" + mirroredId(n) + L"\nSubject=Mirrored earlier\nStart=" + call.begin +
                L"\nEnd=" + call.begin + L"\nType=" + callType + L"\n";
    }
    return text;
}

std::vector<MapRecord> OutlookMirror::startingMap() const
{
    std::vector<MapRecord> map{{goneEntry, entryId(98), mapApplication(), 1},
                               {goneCall, entryId(99), mapApplication(), 0}};
    for (const Entry& entry : entries())
        if (entry.number == mappedNumber) map.push_back({entry.id, mappedContactId, mapApplication(), 1});
    for (std::size_t n = 0; n < deaths::calls().size(); ++n)
        if (deaths::calls()[n].isMirrored) map.push_back({deaths::calls()[n].id, mirroredId(n), mapApplication(), 0});
    return map;
}

std::vector<Mirror> OutlookMirror::contacts() const
{
    std::vector<Mirror> found;
    for (const StoreRecord& record : desk::parseStore(desk::ask(partner(), L"contacts")))
        found.push_back(mirror(record, hublink::StripPhoneNumber(valueOf(record, L"BusinessTelephoneNumber"))));
    return found;
}

std::vector<Mirror> OutlookMirror::calls() const
{
    std::vector<Mirror> found;
    for (const StoreRecord& record : journal(callType)) found.push_back(mirror(record, valueOf(record, L"Start")));
    return found;
}

std::vector<std::wstring> OutlookMirror::logLines() const
{
    std::vector<std::wstring> lines;
    for (const StoreRecord& record : journal(logType))
        for (const std::wstring& line : linesWithoutTime(valueOf(record, L"Body"))) lines.push_back(line);
    return lines;
}

}
