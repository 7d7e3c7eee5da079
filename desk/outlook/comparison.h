// A field of an item compared with a value, as one of a filter's conditions.
#pragma once

#include "desk/outlook/filter.h"

#include <string>

namespace desk::outlook {

class Comparison final : public Condition {
public:
    // `sign` is one of = <> < > <= >=; `value` has the field's type.
    Comparison(const Field& field, std::wstring sign, automation::Value value);

    bool holds(const Item& item) const override;

private:
    int compare(const automation::Value& held) const;

    const Field& field_;
    const std::wstring sign_;
    const automation::Value value_;
    const std::wstring text_;
    const std::wstring lowerText_;
};

}
