// The documented fields of Outlook's items: which classes have them, of what
// type they are, and where they may not be used. A field has one dispatch
// identifier, the same in every class that has it.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string_view>

namespace desk::outlook {

enum class ItemClass { contact, distributionList, journal, mail };

inline constexpr ItemClass allItemClasses[] = {ItemClass::contact, ItemClass::distributionList, ItemClass::journal,
                                               ItemClass::mail};

enum class FieldType { text, date, number, boolean };

struct Field {
    // Traits, joined.
    static constexpr unsigned readOnly = 1;
    static constexpr unsigned noFilter = 2;  // refused by Items.Find and GetTable's filter
    static constexpr unsigned noTable = 4;   // refused by Columns.Add
    static constexpr unsigned computed = 8;  // made from other data at each reading, never stored
    static constexpr unsigned guarded = 16;  // read only if Outlook's guard lets it be

    const wchar_t* name;
    FieldType type;
    unsigned classes; // bits of ItemClass
    unsigned traits;

    DISPID id() const noexcept;
    bool in(ItemClass item) const noexcept { return (classes & (1u << static_cast<unsigned>(item))) != 0; }
    bool has(unsigned trait) const noexcept { return (traits & trait) != 0; }
};

// All fields, in the order in which records are written.
struct FieldRange {
    const Field* begin() const noexcept;
    const Field* end() const noexcept;
};

inline constexpr FieldRange allFields{};

// The field of that identifier or name (without regard to case), or null.
const Field* fieldOf(DISPID id) noexcept;
const Field* fieldNamed(std::wstring_view name);

// The identifier of a field that exists.
DISPID fieldId(std::wstring_view name) noexcept;

}
