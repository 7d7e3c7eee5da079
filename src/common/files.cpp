#include "common/files.h"

#include <windows.h>

namespace hublink {

bool FileExist(const std::wstring& file)
{
    return GetFileAttributesW(file.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void CopieFileIfNotExist(const std::wstring& folder, const std::wstring& file, const std::wstring& programFolder)
{
    const std::wstring target = folder + L"\\" + file;
    if (FileExist(target)) return;
    if (CopyFileW((programFolder + L"\\" + file).c_str(), target.c_str(), FALSE))
        SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_NORMAL);
}

}
