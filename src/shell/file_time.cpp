#include "shell/file_time.h"

namespace hublink {

std::optional<FILETIME> modificationTime(const std::wstring& file)
{
    WIN32_FILE_ATTRIBUTE_DATA attributes;
    if (!GetFileAttributesExW(file.c_str(), GetFileExInfoStandard, &attributes)) return std::nullopt;
    return attributes.ftLastWriteTime;
}

bool sameTime(const FILETIME& a, const FILETIME& b)
{
    return CompareFileTime(&a, &b) == 0;
}

}
