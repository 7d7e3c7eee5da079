// Somebody on the telephone: three texts that travel together.
#pragma once

#include <string>

namespace hublink {

struct Party {
    std::wstring number;
    std::wstring lastName;
    std::wstring firstName;
};

}
