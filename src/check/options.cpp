#include "check/options.h"

#include "automation/text.h"

namespace hublink::check {

namespace {

using Arguments = std::vector<std::wstring>;

bool parseLanguage(const std::wstring& word, Options& options)
{
    const bool isFrench = automation::equalIgnoringCase(word, L"fr");
    options.language = MAKELANGID(isFrench ? LANG_FRENCH : LANG_ENGLISH, SUBLANG_DEFAULT);
    return isFrench || automation::equalIgnoringCase(word, L"en");
}

bool parseFile(const std::wstring& file, Options& options)
{
    options.saveTo = file;
    return !file.empty() && !file.starts_with(L"--");
}

// An option that stands alone; false for any other.
bool parseFlag(const std::wstring& option, Options& options)
{
    if (option == L"--with-names") options.savedNames = Names::shown;
    else if (option == L"--map") options.listsMap = true;
    else if (option == L"--help") options.asksForHelp = true;
    else return false;
    return true;
}

// An option with a word behind it.
bool parsePair(const std::wstring& option, const std::wstring& word, Options& options)
{
    if (option == L"--save") return parseFile(word, options);
    return option == L"--language" && parseLanguage(word, options);
}

}

std::optional<Options> optionsOf(const Arguments& arguments)
{
    Options options;
    for (std::size_t next = 0; next < arguments.size(); ++next) {
        if (parseFlag(arguments[next], options)) continue;
        if (next + 1 == arguments.size() || !parsePair(arguments[next], arguments[next + 1], options))
            return std::nullopt;
        ++next;
    }
    if (options.savedNames == Names::shown && options.saveTo.empty()) return std::nullopt;
    return options;
}

}
