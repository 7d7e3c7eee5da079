#include "desk/lotus/condition.h"

namespace desk::lotus {

namespace {

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

}

Operand phrase(const ItemName* item, std::vector<std::wstring> words)
{
    return std::make_unique<Phrase>(item, std::move(words));
}

Operand present(const ItemName& item)
{
    return std::make_unique<Present>(item);
}

Operand negation(Operand operand)
{
    return std::make_unique<Not>(std::move(operand));
}

Operand conjunction(Operand left, Operand right)
{
    return std::make_unique<And>(std::move(left), std::move(right));
}

Operand disjunction(Operand left, Operand right)
{
    return std::make_unique<Or>(std::move(left), std::move(right));
}

}
