#include "convid/store_place.h"

#include "convid/store_error.h"

#include <shlobj.h>

namespace convid {

std::wstring storePath(MissingFolder missing)
{
    wchar_t folder[MAX_PATH];
    const int place = missing == MissingFolder::isMade ? CSIDL_APPDATA | CSIDL_FLAG_CREATE : CSIDL_APPDATA;
    const HRESULT result = SHGetFolderPathW(nullptr, place, nullptr, SHGFP_TYPE_CURRENT, folder);
    if (FAILED(result)) throw StoreError(result, L"The user's application data folder is unknown");
    return std::wstring(folder) + L"\\Hublink\\identifiers.map";
}

}
