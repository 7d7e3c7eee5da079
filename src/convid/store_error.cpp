#include "convid/store_error.h"

#include "automation/system_message.h"

namespace convid {

StoreError systemError(const std::wstring& what, DWORD code)
{
    return StoreError(HRESULT_FROM_WIN32(code), what + L": " + automation::systemMessage(code));
}

}
