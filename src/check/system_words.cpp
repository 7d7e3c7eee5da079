#include "check/system_words.h"

namespace hublink::check {

Words systemWords(DWORD code)
{
    wchar_t text[512];
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0,
                                        text, 512, nullptr);
    std::wstring words(text, length);
    words.resize(words.find_last_not_of(L"\r\n .") + 1);
    return words + (words.empty() ? L"" : L" ") + L"(error " + std::to_wstring(code) + L")";
}

}
