#include "convid/store_place.h"

#include "convid/store_error.h"

#include <shlobj.h>

namespace convid {

std::wstring storePath()
{
    wchar_t folder[MAX_PATH];
    const HRESULT result =
        SHGetFolderPathW(nullptr, CSIDL_APPDATA | CSIDL_FLAG_CREATE, nullptr, SHGFP_TYPE_CURRENT, folder);
    if (FAILED(result)) throw StoreError(result, L"The user's application data folder is unknown");
    return std::wstring(folder) + L"\\Hublink\\identifiers.map";
}

}
