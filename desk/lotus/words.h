// The words of texts, as a full-text search knows them.
//
// A word is a run of characters other than blanks and , ; : ! " ( ) [ ] { } < >
// = | \ without full stops, apostrophes, hyphens and slashes at its ends. So a
// telephone number is one word as long as it is written without blanks and
// parentheses; a part of a word is no hit. Case makes no difference, and only
// texts are searched, not numbers and dates.
#pragma once

#include "desk/lotus/note.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace desk::lotus {

// The words of a text in lower case, in their order.
std::vector<std::wstring> wordsOf(std::wstring_view text);

// Which notes contain a word, by their places. May name a note that no longer
// contains it; never misses one that does.
class WordIndex {
public:
    bool built() const noexcept { return built_; }
    void build(const std::vector<SavedNote>& notes);
    void add(const Note& note);
    const std::vector<unsigned long>& placesOf(const std::wstring& word) const;

private:
    bool built_ = false;
    std::unordered_map<std::wstring, std::vector<unsigned long>> places_;
};

}
