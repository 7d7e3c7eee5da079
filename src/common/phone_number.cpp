#include "common/phone_number.h"

namespace hublink {

std::wstring StripPhoneNumber(const std::wstring& number)
{
    std::wstring stripped = number;
    std::erase(stripped, L'.');
    std::erase(stripped, L' ');
    return stripped;
}

}
