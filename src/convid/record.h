// One mapping: which groupware record mirrors a softphone record.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace convid {

struct IdentifierRecord {
    std::wstring idOrvel;            // the softphone identifier
    std::wstring idAppli;            // the groupware identifier
    std::int32_t typApplication = 0; // 0 Outlook, 1 Lotus Notes
    std::int32_t collection = 0;     // 1 address book, 0 history

    bool operator==(const IdentifierRecord&) const = default;
};

// Records are never changed, only replaced, so a snapshot shares them.
using RecordPointer = std::shared_ptr<const IdentifierRecord>;

// The longest identifier that the store's file can hold, in UTF-16 units.
inline constexpr std::size_t maxIdentifierLength = 32'767;

}
