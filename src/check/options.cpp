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
    else if (option == L"--help" || option == L"-h" || option == L"-?" || option == L"/?") options.asksForHelp = true;
    else return false;
    return true;
}

bool takesWord(const std::wstring& option)
{
    return option == L"--save" || option == L"--language";
}

// One that takes a word, and the word.
bool parsePair(const std::wstring& option, const std::wstring& word, Options& options)
{
    return option == L"--save" ? parseFile(word, options) : parseLanguage(word, options);
}

Options wrong(const std::wstring& words)
{
    Options options;
    options.notUnderstood = words;
    return options;
}

}

Options optionsOf(const Arguments& arguments)
{
    Options options;
    for (std::size_t next = 0; next < arguments.size(); ++next) {
        if (parseFlag(arguments[next], options)) continue;
        const bool hasWord = takesWord(arguments[next]) && next + 1 < arguments.size();
        if (!hasWord) return wrong(arguments[next]);
        if (!parsePair(arguments[next], arguments[next + 1], options))
            return wrong(arguments[next] + L" " + arguments[next + 1]);
        ++next;
    }
    if (options.savedNames == Names::shown && options.saveTo.empty()) return wrong(L"--with-names (--save ?)");
    return options;
}

}
