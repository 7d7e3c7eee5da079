// Somebody on the telephone, as far as number and names are known.
#pragma once

#include <string>

namespace hublink {

struct Party {
    std::wstring number;
    std::wstring lastName;
    std::wstring firstName;
};

}
