// What is saved in a simulated Outlook, for assertions.
#pragma once

#include "desk/outlook/outlook.h"

#include <string>

namespace support {

// A field of the n-th saved record of a kind ("contact", "journal"), "" when
// the record has no such field.
inline std::wstring savedField(const desk::outlook::Outlook& outlook, const wchar_t* kind, std::size_t index,
                               const wchar_t* name)
{
    for (const desk::StoreRecord& record : outlook.records()) {
        if (record.kind != kind || index-- != 0) continue;
        const std::wstring* value = record.find(name);
        return value ? *value : L"";
    }
    return L"(no such record)";
}

inline std::size_t savedCount(const desk::outlook::Outlook& outlook, const wchar_t* kind)
{
    std::size_t found = 0;
    for (const desk::StoreRecord& record : outlook.records()) found += record.kind == kind;
    return found;
}

}
