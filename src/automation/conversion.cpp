#include "automation/conversion.h"

#include "automation/error.h"
#include "automation/owners.h"
#include "automation/value.h"

#include <oleauto.h>

namespace automation {

std::int16_t int16FromText(const std::wstring& text)
{
    SHORT number = 0;
    check(VarI2FromStr(const_cast<LPOLESTR>(text.c_str()), LOCALE_USER_DEFAULT, 0, &number), L"16-bit integer");
    return number;
}

std::int32_t int32FromText(const std::wstring& text)
{
    LONG number = 0;
    check(VarI4FromStr(const_cast<LPOLESTR>(text.c_str()), LOCALE_USER_DEFAULT, 0, &number), L"32-bit integer");
    return number;
}

std::wstring textFromDate(DATE date)
{
    return Value::date(date).text();
}

std::wstring textFromBoolean(bool value)
{
    Bstr text;
    check(VarBstrFromBool(value ? VARIANT_TRUE : VARIANT_FALSE, LOCALE_USER_DEFAULT, 0, text.receive()), L"Boolean");
    return text.text();
}

DATE now()
{
    SYSTEMTIME time;
    GetLocalTime(&time);
    // Automation dates show whole seconds; a fraction would let a text be rounded up.
    time.wMilliseconds = 0;
    DATE date = 0;
    SystemTimeToVariantTime(&time, &date);
    return date;
}

}
