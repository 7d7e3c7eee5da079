#include "automation/system_message.h"

namespace automation {

std::wstring systemMessage(DWORD code)
{
    wchar_t text[512];
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0,
                                        text, 512, nullptr);
    std::wstring message(text, length);
    message.resize(message.find_last_not_of(L"\r\n .") + 1);
    return message + (message.empty() ? L"" : L" ") + L"(" + std::to_wstring(code) + L")";
}

}
