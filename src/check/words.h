// Texts with gaps, each in two forms: one for the user's own screen, and one to be
// passed on, in which nothing names a person. The gaps are counted when the
// program is compiled, and so is a text that a language lacks.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace hublink::check {

struct Words {
    Words() = default;
    Words(std::wstring text) : full(text), discreet(std::move(text)) {}
    Words(const wchar_t* text) : Words(std::wstring(text)) {}
    Words(std::size_t number) : Words(std::to_wstring(number)) {}
    Words(std::wstring full, std::wstring discreet) : full(std::move(full)), discreet(std::move(discreet)) {}

    bool empty() const noexcept { return full.empty(); }
    bool operator==(const Words&) const = default;

    std::wstring full;
    std::wstring discreet;
};

// What may name a person, a machine or a number: not passed on.
Words personal(const std::wstring& text);

// A path. The folders that are named after users, and the server of a shared
// folder, are not passed on.
Words path(const std::wstring& path);

// `pattern` with its gaps {1}, {2}... filled; what fills one is not looked at again.
Words filled(const wchar_t* pattern, const std::vector<Words>& words);

// Whether a pattern names the gap of that number.
consteval bool namesGap(const wchar_t* pattern, int number)
{
    for (; *pattern; ++pattern)
        if (pattern[0] == L'{' && pattern[1] == L'0' + number && pattern[2] == L'}') return true;
    return false;
}

consteval bool namesGapsBeyond(const wchar_t* pattern, int last)
{
    for (int number = last + 1; number <= 9; ++number)
        if (namesGap(pattern, number)) return true;
    return false;
}

// A text whose gaps are all there. It has no default: a table of texts that lacks one
// does not compile.
template <int gaps>
class Text {
public:
    consteval Text(const wchar_t* pattern) : pattern_(pattern)
    {
        for (int number = 1; number <= gaps; ++number)
            if (!namesGap(pattern, number)) throw "a text lacks a gap";
        if (namesGapsBeyond(pattern, gaps)) throw "a text has a gap too many";
    }

    template <class... Fillings>
        requires(sizeof...(Fillings) == gaps)
    Words operator()(const Fillings&... fillings) const
    {
        return filled(pattern_, {Words(fillings)...});
    }

private:
    const wchar_t* pattern_;
};

// What was found, and what to do. Each gap is in one of the two, or in both.
template <int gaps>
class AdvisedText {
public:
    consteval AdvisedText(const wchar_t* what, const wchar_t* advice) : what_(what), advice_(advice)
    {
        for (int number = 1; number <= gaps; ++number)
            if (!namesGap(what, number) && !namesGap(advice, number)) throw "a text lacks a gap";
        if (namesGapsBeyond(what, gaps) || namesGapsBeyond(advice, gaps)) throw "a text has a gap too many";
    }

    template <class... Fillings>
        requires(sizeof...(Fillings) == gaps)
    Words what(const Fillings&... fillings) const
    {
        return filled(what_, {Words(fillings)...});
    }

    template <class... Fillings>
        requires(sizeof...(Fillings) == gaps)
    Words advice(const Fillings&... fillings) const
    {
        return filled(advice_, {Words(fillings)...});
    }

private:
    const wchar_t* what_;
    const wchar_t* advice_;
};

}
