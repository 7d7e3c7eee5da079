#include "common/dictionary.h"

#include "automation/text.h"
#include "common/files.h"

#include <utility>

namespace hublink {

using automation::toAnsi;
using automation::toWide;

Dictionary::Dictionary(std::wstring programFolder) : folder_(std::move(programFolder) + L"\\dictionary\\") {}

void Dictionary::LoadDico()
{
    load(GetUserDefaultUILanguage());
}

void Dictionary::LoadDicoSelected(std::int32_t language)
{
    load(language == 0 ? GetUserDefaultUILanguage() : language);
}

void Dictionary::load(std::int32_t language)
{
    const auto mainForm = MAKELANGID(PRIMARYLANGID(static_cast<LANGID>(language)), SUBLANG_DEFAULT);
    const auto english = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);
    file_.clear();
    for (const std::int32_t candidate : {language, std::int32_t{mainForm}, std::int32_t{english}}) {
        const std::wstring file = folder_ + std::to_wstring(candidate) + L".ini";
        if (!FileExist(file)) continue;
        file_ = file;
        return;
    }
}

DWORD Dictionary::GetElt(const char* section, const char* key, const char* fallback, char* buffer, DWORD size) const
{
    if (size == 0) return 0;
    // No name at all would mean the system's own win.ini. The wide function
    // reads from folders that the ANSI code page cannot name.
    const std::wstring source = file_.empty() ? folder_ + L"none.ini" : file_;
    wchar_t text[1024];
    const DWORD length = GetPrivateProfileStringW(toWide(section).c_str(), toWide(key).c_str(),
                                                  toWide(fallback).c_str(), text, 1024, source.c_str());
    const std::string value = toAnsi({text, length}).substr(0, size - 1);
    value.copy(buffer, value.size());
    buffer[value.size()] = '\0';
    return static_cast<DWORD>(value.size());
}

}
