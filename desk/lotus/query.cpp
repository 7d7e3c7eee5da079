#include "desk/lotus/query.h"

#include "desk/common/text.h"
#include "desk/lotus/errors.h"

#include <algorithm>

namespace desk::lotus {

namespace {

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
        while (take(Token::Kind::disjunction)) left = lotus::disjunction(std::move(left), conjunction());
        return left;
    }

    Operand conjunction()
    {
        Operand left = negation();
        while (take(Token::Kind::conjunction)) left = lotus::conjunction(std::move(left), negation());
        return left;
    }

    Operand negation()
    {
        if (take(Token::Kind::negation)) return lotus::negation(negation());
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
        if (take(Token::Kind::present)) return present(itemName(name));
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
        return lotus::phrase(item, std::move(words));
    }

    Scanner scanner_;
    Token token_;
};

}

std::unique_ptr<Condition> parseQuery(std::wstring_view text)
{
    return Parser(text).parse();
}

}
