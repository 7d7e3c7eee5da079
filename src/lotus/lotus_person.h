// What a search in the Notes address books finds out about a person.
#pragma once

#include <string>

namespace hublink {

struct LotusPerson {
    std::wstring lastName;
    std::wstring firstName;
    std::wstring fullName;
    std::wstring mail;
    std::wstring noteId;
};

}
