#include "check/words.h"

#include "check/discreet_path.h"

namespace hublink::check {

namespace {

bool isGap(const wchar_t* at)
{
    return at[0] == L'{' && at[1] >= L'1' && at[1] <= L'9' && at[2] == L'}';
}

}

Words personal(const std::wstring& text)
{
    return {text, text.empty() ? text : hidden};
}

Words path(const std::wstring& path)
{
    return {path, discreetPath(path)};
}

Words filled(const wchar_t* pattern, const std::vector<Words>& words)
{
    Words text;
    for (const wchar_t* at = pattern; *at; ++at) {
        const std::size_t gap = isGap(at) ? static_cast<std::size_t>(at[1] - L'1') : words.size();
        text.full += gap < words.size() ? words[gap].full : std::wstring(1, *at);
        text.discreet += gap < words.size() ? words[gap].discreet : std::wstring(1, *at);
        if (gap < words.size()) at += 2;
    }
    return text;
}

}
