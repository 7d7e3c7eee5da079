// The rights of those who use the computer.
#pragma once

#include <string>

namespace hublink::setup {

// Lets every user of the computer read and change the file, besides what its
// folder hands down. Throws std::runtime_error when that cannot be.
void letUsersChange(const std::wstring& file);

}
