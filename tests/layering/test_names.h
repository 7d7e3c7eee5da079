// What tests, fixtures and test classes are called.
#pragma once

#include "source_files.h"

#include <string>
#include <vector>

namespace layering {

// Everything that breaks the rules, in words; empty when nothing does.
//  - A suite's tests stand in one file.
//  - No two files define a class of one name, nested ones apart.
//  - A test is named Condition_Result, so that it says what is true.
std::vector<std::string> nameViolations(const Files& tests);

}
