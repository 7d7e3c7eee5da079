// The rights of those who use the computer.
#pragma once

#include "automation/owners.h"

#include <windows.h>

#include <string>

namespace hublink::setup {

// Lets every user of the computer read and change the file, besides what its
// folder hands down. Throws std::runtime_error when it cannot.
void letUsersChange(const std::wstring& file);

// The list with that right added to what it holds.
automation::LocalMemory<ACL> withChangeForUsers(ACL* list);

}
