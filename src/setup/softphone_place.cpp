#include "setup/softphone_place.h"

#include "common/installation.h"

#include <windows.h>

namespace hublink::setup {

std::wstring connectorFolderHere()
{
    Configuration found;
    readInstallation(found);
    if (found.szPathPavex.empty()) return {};
    const DWORD attributes = GetFileAttributesW(found.szPathPavex.c_str());
    const bool isFolder = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    return isFolder ? connectorFolder(found) : L"";
}

}
