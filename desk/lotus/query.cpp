#include "desk/lotus/query.h"

#include "desk/common/text.h"
#include "desk/lotus/errors.h"

#include <algorithm>

namespace desk::lotus {

namespace {

constexpr std::wstring_view separators = L" \t\r\n\v\f\u00A0,;:!\"()[]{}<>=|\\";
constexpr std::wstring_view edges = L".'-/";
constexpr std::wstring_view wildcards = L"*?";

bool matchesPattern(std::wstring_view pattern, std::wstring_view word)
{
    for (; !pattern.empty() && pattern[0] != L'*'; pattern.remove_prefix(1), word.remove_prefix(1))
        if (word.empty() || (pattern[0] != L'?' && pattern[0] != word[0])) return false;
    if (pattern.empty()) return word.empty();
    for (std::size_t length = 0; length <= word.size(); ++length)
        if (matchesPattern(pattern.substr(1), word.substr(length))) return true;
    return false;
}

class Phrase final : public Condition {
public:
    Phrase(const ItemName* item, std::vector<std::wstring> words) : item_(item), words_(std::move(words))
    {
        for (const std::wstring& word : words_) patterns_ |= word.find_first_of(wildcards) != std::wstring::npos;
    }

    unsigned hits(const Note& note) const override
    {
        unsigned found = 0;
        for (const Item& item : note.items) {
            if (!item.isText() || (item_ && !item.name->is(*item_))) continue;
            for (const std::wstring& text : item.texts) found += hitsIn(text);
        }
        return found;
    }

    Places candidates(const WordIndex& index) const override
    {
        if (patterns_) return std::nullopt;
        const std::vector<unsigned long>* rarest = &index.placesOf(words_[0]);
        for (const std::wstring& word : words_)
            if (index.placesOf(word).size() < rarest->size()) rarest = &index.placesOf(word);
        return *rarest;
    }

private:
    unsigned hitsIn(const std::wstring& text) const
    {
        if (text.empty()) return 0;
        const std::vector<std::wstring> own = wordsOf(text);
        unsigned found = 0;
        for (std::size_t start = 0; start + words_.size() <= own.size(); ++start) found += standsAt(own, start);
        return found;
    }

    bool standsAt(const std::vector<std::wstring>& own, std::size_t start) const
    {
        for (std::size_t index = 0; index < words_.size(); ++index)
            if (patterns_ ? !matchesPattern(words_[index], own[start + index]) : words_[index] != own[start + index])
                return false;
        return true;
    }

    const ItemName* const item_; // null for any
    const std::vector<std::wstring> words_;
    bool patterns_ = false;
};

class Present final : public Condition {
public:
    explicit Present(const ItemName& item) : item_(item) {}
    unsigned hits(const Note& note) const override
    {
        const Item* item = note.find(item_);
        return item && !textOf(*item).empty();
    }
    Places candidates(const WordIndex&) const override { return std::nullopt; }

private:
    const ItemName& item_;
};

using Operand = std::unique_ptr<Condition>;

class Not final : public Condition {
public:
    explicit Not(Operand operand) : operand_(std::move(operand)) {}
    unsigned hits(const Note& note) const override { return operand_->hits(note) == 0; }
    Places candidates(const WordIndex&) const override { return std::nullopt; }

private:
    const Operand operand_;
};

class And final : public Condition {
public:
    And(Operand left, Operand right) : left_(std::move(left)), right_(std::move(right)) {}
    unsigned hits(const Note& note) const override
    {
        const unsigned left = left_->hits(note);
        const unsigned right = left ? right_->hits(note) : 0;
        return right ? left + right : 0;
    }
    Places candidates(const WordIndex& index) const override
    {
        Places places = left_->candidates(index);
        return places ? places : right_->candidates(index);
    }

private:
    const Operand left_;
    const Operand right_;
};

class Or final : public Condition {
public:
    Or(Operand left, Operand right) : left_(std::move(left)), right_(std::move(right)) {}
    unsigned hits(const Note& note) const override { return left_->hits(note) + right_->hits(note); }
    Places candidates(const WordIndex& index) const override
    {
        Places left = left_->candidates(index);
        const Places right = right_->candidates(index);
        if (!left || !right) return std::nullopt;
        left->insert(left->end(), right->begin(), right->end());
        return left;
    }

private:
    const Operand left_;
    const Operand right_;
};

struct Token {
    enum class Kind { end, word, quoted, item, contains, present, negation, conjunction, disjunction, open, close };
    Kind kind = Kind::end;
    std::wstring text;
};

class Scanner {
public:
    explicit Scanner(std::wstring_view text) : rest_(text) {}

    Token next()
    {
        const std::size_t start = rest_.find_first_not_of(L" \t\r\n");
        rest_.remove_prefix(std::min(start, rest_.size()));
        if (rest_.empty()) return {};
        if (rest_[0] == L'"') return {Token::Kind::quoted, delimited(L'"')};
        if (rest_[0] == L'[') return {Token::Kind::item, delimited(L']')};
        constexpr std::wstring_view marks = L"()=!&+|,";
        using Kind = Token::Kind;
        constexpr Kind kinds[] = {Kind::open,        Kind::close,       Kind::contains,    Kind::negation,
                                  Kind::conjunction, Kind::conjunction, Kind::disjunction, Kind::disjunction};
        const std::size_t mark = marks.find(rest_[0]);
        // A plus sign before a digit belongs to a telephone number.
        const bool sign = rest_[0] == L'+' && rest_.size() > 1 && rest_[1] != L' ';
        if (mark == std::wstring_view::npos || sign) return word();
        rest_.remove_prefix(1);
        return {kinds[mark], L""};
    }

private:
    std::wstring delimited(wchar_t end)
    {
        const std::size_t close = rest_.find(end, 1);
        if (close == std::wstring_view::npos) raise(numbers::badQuery, L"Notes error: Query is not understandable");
        std::wstring text(rest_.substr(1, close - 1));
        rest_.remove_prefix(close + 1);
        return text;
    }

    Token word()
    {
        const std::size_t length =
            std::max<std::size_t>(std::min(rest_.find_first_of(L" \t\r\n\"[]()=!&|,"), rest_.size()), 1);
        std::wstring text(rest_.substr(0, length));
        rest_.remove_prefix(length);
        const std::wstring lower = lowerCase(text);
        using Kind = Token::Kind;
        if (lower == L"contains") return {Kind::contains, L""};
        if (lower == L"not") return {Kind::negation, L""};
        if (lower == L"and") return {Kind::conjunction, L""};
        if (lower == L"or" || lower == L"accrue") return {Kind::disjunction, L""};
        if (lower == L"field") return {Kind::item, next().text};
        if (lower == L"is") {
            const std::wstring_view before = rest_;
            if (lowerCase(next().text) == L"present") return {Kind::present, L""};
            rest_ = before;
        }
        return {Kind::word, std::move(text)};
    }

    std::wstring_view rest_;
};

class Parser {
public:
    explicit Parser(std::wstring_view text) : scanner_(text), token_(scanner_.next()) {}

    Operand parse()
    {
        Operand whole = disjunction();
        if (token_.kind != Token::Kind::end) refuse();
        return whole;
    }

private:
    [[noreturn]] static void refuse() { raise(numbers::badQuery, L"Notes error: Query is not understandable"); }

    bool take(Token::Kind kind)
    {
        if (token_.kind != kind) return false;
        token_ = scanner_.next();
        return true;
    }

    Operand disjunction()
    {
        Operand left = conjunction();
        while (take(Token::Kind::disjunction)) left = std::make_unique<Or>(std::move(left), conjunction());
        return left;
    }

    Operand conjunction()
    {
        Operand left = negation();
        while (take(Token::Kind::conjunction)) left = std::make_unique<And>(std::move(left), negation());
        return left;
    }

    Operand negation()
    {
        if (take(Token::Kind::negation)) return std::make_unique<Not>(negation());
        if (!take(Token::Kind::open)) return test();
        Operand inner = disjunction();
        if (!take(Token::Kind::close)) refuse();
        return inner;
    }

    Operand test()
    {
        if (token_.kind != Token::Kind::item) return phrase(nullptr);
        const std::wstring name = token_.text;
        token_ = scanner_.next();
        if (name.empty()) refuse();
        if (take(Token::Kind::present)) return std::make_unique<Present>(itemName(name));
        if (!take(Token::Kind::contains)) refuse();
        return phrase(&itemName(name));
    }

    Operand phrase(const ItemName* item)
    {
        std::wstring text;
        while (token_.kind == Token::Kind::word || token_.kind == Token::Kind::quoted) {
            text += L' ' + token_.text;
            token_ = scanner_.next();
        }
        std::vector<std::wstring> words = wordsOf(text);
        if (words.empty()) refuse();
        return std::make_unique<Phrase>(item, std::move(words));
    }

    Scanner scanner_;
    Token token_;
};

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

std::unique_ptr<Condition> parseQuery(std::wstring_view text)
{
    return Parser(text).parse();
}

}
