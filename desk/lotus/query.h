// Full-text queries as a Notes user writes them:
//
//     [LastName] CONTAINS "durand" OR FIELD Company = pavex AND NOT draft
//
// Words in a row, in quotes or not, are a phrase: they stand in a row in one
// value of the item, or without an item's name, in one value of any item.
// Operators: CONTAINS and =, IS PRESENT, NOT !, AND & +, OR | ACCRUE and the
// comma; NOT binds more than AND, and AND more than OR. A name that is an
// operator stands in quotes. * stands for any characters within a word, ? for
// one.
//
// A word is a run of characters other than blanks and , ; : ! " ( ) [ ] { } < >
// = | \ without full stops, apostrophes, hyphens and slashes at its ends. So a
// telephone number is one word as long as it is written without blanks and
// parentheses; a part of a word is no hit. Case makes no difference, and only
// texts are searched, not numbers and dates.
#pragma once

#include "desk/lotus/note.h"

#include <memory>
#include <optional>
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

class Condition {
public:
    virtual ~Condition() = default;

    // How often the note matches, 0 when it does not.
    virtual unsigned hits(const Note& note) const = 0;

    // The only places where there may be hits; none when that cannot be told.
    using Places = std::optional<std::vector<unsigned long>>;
    virtual Places candidates(const WordIndex& index) const = 0;
};

// Raises "Query is not understandable".
std::unique_ptr<Condition> parseQuery(std::wstring_view text);

}
