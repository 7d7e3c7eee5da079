// What a program could have changed: registry, files with their times, running programs.
#pragma once

#include <string>

namespace hublink::check {

// Every key below one, with the time of its last change, which a changed value sets too.
std::wstring registryText(void* root, const std::wstring& key);

// Every file and folder below a folder, with its size and the time of its last change.
std::wstring folderText(const std::wstring& folder);

// The names of all running programs, sorted.
std::wstring programsText();

}
