// The conditions that Items.Find and Folder.GetTable take, in the Jet form:
// [Field] compared with 'text', "text", a number or True/False, joined by And,
// Or, Not and parentheses. A quote inside a text is doubled.
#pragma once

#include "desk/outlook/item.h"

#include <memory>
#include <string_view>

namespace desk::outlook {

class Condition {
public:
    virtual ~Condition() = default;
    virtual bool holds(const Item& item) const = 0;
};

// Raises Outlook's errors: a condition that cannot be parsed, an unknown
// field, one that cannot be searched, a value that does not fit its field.
std::unique_ptr<Condition> parseFilter(std::wstring_view filter);

}
