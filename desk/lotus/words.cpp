#include "desk/lotus/words.h"

#include "desk/common/text.h"

#include <algorithm>

namespace desk::lotus {

namespace {

constexpr std::wstring_view separators = L" \t\r\n\v\f\u00A0,;:!\"()[]{}<>=|\\";
constexpr std::wstring_view edges = L".'-/";

}

std::vector<std::wstring> wordsOf(std::wstring_view text)
{
    const std::wstring folded = lowerCase(text);
    std::wstring_view rest = folded;
    std::vector<std::wstring> words;
    while (!rest.empty()) {
        const std::size_t length = std::min(rest.find_first_of(separators), rest.size());
        std::wstring_view word = rest.substr(0, length);
        rest.remove_prefix(std::min(length + 1, rest.size()));
        word.remove_prefix(std::min(word.find_first_not_of(edges), word.size()));
        word = word.substr(0, word.find_last_not_of(edges) + 1);
        if (!word.empty()) words.emplace_back(word);
    }
    return words;
}

void WordIndex::build(const std::vector<SavedNote>& notes)
{
    built_ = true;
    for (const SavedNote& note : notes) add(*note);
}

void WordIndex::add(const Note& note)
{
    if (!built_) return;
    for (const Item& item : note.items)
        for (const std::wstring& text : item.texts)
            for (std::wstring& word : wordsOf(text)) {
                auto& places = places_[std::move(word)];
                if (places.empty() || places.back() != note.place) places.push_back(note.place);
            }
}

const std::vector<unsigned long>& WordIndex::placesOf(const std::wstring& word) const
{
    static const std::vector<unsigned long> none;
    const auto found = places_.find(word);
    return found == places_.end() ? none : found->second;
}

}
