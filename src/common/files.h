// Two small services on files.
#pragma once

#include <string>

namespace hublink {

// Whether the file's (or folder's) attributes can be read.
bool FileExist(const std::wstring& file);

// Copies the file from the program's folder into `folder`, unless it is there
// already, and makes the copy writable: a copy from read-only media is not. Makes
// no folder. Failures are swallowed.
void CopieFileIfNotExist(const std::wstring& folder, const std::wstring& file, const std::wstring& programFolder);

}
