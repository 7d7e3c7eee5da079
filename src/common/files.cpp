#include "common/files.h"

#include <windows.h>

namespace hublink {

bool FileExist(const std::wstring& szFile)
{
    return GetFileAttributesW(szFile.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void CopieFileIfNotExist(const std::wstring& szpath, const std::wstring& szFile, const std::wstring& programFolder)
{
    const std::wstring target = szpath + L"\\" + szFile;
    if (FileExist(target)) return;
    if (CopyFileW((programFolder + L"\\" + szFile).c_str(), target.c_str(), FALSE))
        SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_NORMAL);
}

}
