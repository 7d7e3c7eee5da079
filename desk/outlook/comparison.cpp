#include "desk/outlook/comparison.h"

#include "desk/common/text.h"

#include <cmath>
#include <utility>

namespace desk::outlook {

namespace {

using automation::Value;

constexpr double minutesOfDay = 24 * 60;

double numberIn(const Value& value)
{
    switch (value.type()) {
    case VT_DATE: return value.asDate();
    case VT_BOOL: return value.isTrue() ? 1 : 0;
    default: return value.int32();
    }
}

}

Comparison::Comparison(const Field& field, std::wstring sign, Value value)
    : field_(field), sign_(std::move(sign)), value_(std::move(value)), text_(value_.text()),
      lowerText_(lowerCase(text_))
{}

bool Comparison::holds(const Item& item) const
{
    const Value held = valueOf(item, field_); // empty for a field that items of this class lack
    const bool equal = sign_ == L"=" || sign_ == L"<>";
    if (equal && field_.type == FieldType::text) return (lowerCase(held.text()) == lowerText_) == (sign_ == L"=");
    const int order = compare(held);
    if (order == 0) return sign_ == L"=" || sign_ == L"<=" || sign_ == L">=";
    return sign_ == L"<>" || sign_[0] == (order < 0 ? L'<' : L'>');
}

int Comparison::compare(const Value& held) const
{
    if (field_.type == FieldType::text)
        return CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, held.text().c_str(), -1, text_.c_str(), -1) -
               CSTR_EQUAL;
    // Dates are compared to the minute, as they are written in conditions.
    const double scale = field_.type == FieldType::date ? minutesOfDay : 1;
    const double difference = std::floor(numberIn(held) * scale + 0.001) - std::floor(numberIn(value_) * scale + 0.001);
    return difference < 0 ? -1 : difference > 0;
}

}
