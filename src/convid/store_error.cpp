#include "convid/store_error.h"

namespace convid {

namespace {

std::wstring systemText(DWORD code)
{
    wchar_t text[512];
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0,
                                        text, 512, nullptr);
    std::wstring words(text, length);
    while (!words.empty() && (words.back() == L'\n' || words.back() == L'\r' || words.back() == L' ')) words.pop_back();
    return words;
}

}

StoreError systemError(const std::wstring& what, DWORD code)
{
    return StoreError(HRESULT_FROM_WIN32(code),
                      what + L": " + systemText(code) + L" (error " + std::to_wstring(code) + L")");
}

}
