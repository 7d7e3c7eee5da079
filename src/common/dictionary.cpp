#include "common/dictionary.h"

#include "automation/text.h"

#include "common/files.h"

#include <utility>

Dictionary::Dictionary(std::wstring programFolder) : folder_(std::move(programFolder) + L"\\dictionary\\") {}

void Dictionary::LoadDico()
{
    LoadDicoSelected(GetUserDefaultUILanguage());
}

void Dictionary::LoadDicoSelected(std::int32_t language)
{
    if (language == 0) return LoadDico();
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
    // No name at all would mean the system's own win.ini.
    const std::wstring source = file_.empty() ? folder_ + L"none.ini" : file_;
    return GetPrivateProfileStringA(section, key, fallback, buffer, size, automation::ansi(source).c_str());
}
