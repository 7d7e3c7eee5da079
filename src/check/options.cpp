#include "check/options.h"

#include "automation/text.h"

namespace hublink::check {

namespace {

using Arguments = std::vector<std::wstring>;

bool takeLanguage(const std::wstring& word, Options& options)
{
    const bool isFrench = automation::equalWithoutCase(word, L"fr");
    options.language = MAKELANGID(isFrench ? LANG_FRENCH : LANG_ENGLISH, SUBLANG_DEFAULT);
    return isFrench || automation::equalWithoutCase(word, L"en");
}

bool takeFile(const std::wstring& file, Options& options)
{
    options.saveTo = file;
    return !file.empty() && !file.starts_with(L"--");
}

// Of the option at `next`, which it moves on; false for a wrong one.
bool take(const Arguments& arguments, std::size_t& next, Options& options)
{
    const std::wstring& option = arguments[next++];
    if (option == L"--with-names") options.savedNames = Names::shown;
    else if (option == L"--map") options.listsMap = true;
    else if (option == L"--help") options.asksForHelp = true;
    else if (next == arguments.size()) return false;
    else if (option == L"--save") return takeFile(arguments[next++], options);
    else if (option == L"--language") return takeLanguage(arguments[next++], options);
    else return false;
    return true;
}

}

std::optional<Options> optionsOf(const Arguments& arguments)
{
    Options options;
    for (std::size_t next = 0; next < arguments.size();)
        if (!take(arguments, next, options)) return std::nullopt;
    if (options.savedNames == Names::shown && options.saveTo.empty()) return std::nullopt;
    return options;
}

}
