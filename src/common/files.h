// Two small services on files.
#pragma once

#include <string>

namespace hublink {

// Whether the file's (or folder's) attributes can be read.
bool FileExist(const std::wstring& szFile);

// Copies `szFile` from the program's folder into the folder `szpath`, unless
// it is there already, and makes the copy writable: a copy from read-only
// media is not. Makes no folder. Failures are swallowed.
void CopieFileIfNotExist(const std::wstring& szpath, const std::wstring& szFile, const std::wstring& programFolder);

}
