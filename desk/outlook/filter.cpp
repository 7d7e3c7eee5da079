#include "desk/outlook/filter.h"

#include "automation/server/dispatch.h"
#include "automation/text.h"
#include "desk/outlook/comparison.h"
#include "desk/outlook/errors.h"

#include <algorithm>
#include <cwctype>

namespace desk::outlook {

namespace {

using automation::Value;

using Operand = std::unique_ptr<Condition>;

class Both final : public Condition {
public:
    Both(Operand a, Operand b) : a_(std::move(a)), b_(std::move(b)) {}
    bool holds(const Item& item) const override { return a_->holds(item) && b_->holds(item); }

private:
    Operand a_, b_;
};

class Either final : public Condition {
public:
    Either(Operand a, Operand b) : a_(std::move(a)), b_(std::move(b)) {}
    bool holds(const Item& item) const override { return a_->holds(item) || b_->holds(item); }

private:
    Operand a_, b_;
};

class Opposite final : public Condition {
public:
    explicit Opposite(Operand a) : a_(std::move(a)) {}
    bool holds(const Item& item) const override { return !a_->holds(item); }

private:
    Operand a_;
};

class Parser {
public:
    explicit Parser(std::wstring_view filter) : rest_(filter) {}

    Operand parse()
    {
        Operand condition = alternatives();
        skipBlanks();
        if (!rest_.empty()) fail();
        return condition;
    }

private:
    [[noreturn]] void fail() const
    {
        raise(DISP_E_EXCEPTION, L"Cannot parse condition. Error at \"" + std::wstring(rest_) + L"\".");
    }

    void skipBlanks()
    {
        while (!rest_.empty() && std::iswspace(rest_[0])) rest_.remove_prefix(1);
    }

    bool takeSign(std::wstring_view sign)
    {
        skipBlanks();
        if (!rest_.starts_with(sign)) return false;
        rest_.remove_prefix(sign.size());
        return true;
    }

    bool takeKeyword(std::wstring_view word)
    {
        skipBlanks();
        if (!automation::equalIgnoringCase(rest_.substr(0, word.size()), word)) return false;
        if (rest_.size() > word.size() && std::iswalnum(rest_[word.size()])) return false;
        rest_.remove_prefix(word.size());
        return true;
    }

    Operand alternatives()
    {
        Operand condition = conjunction();
        while (takeKeyword(L"Or")) condition = std::make_unique<Either>(std::move(condition), conjunction());
        return condition;
    }

    Operand conjunction()
    {
        Operand condition = negation();
        while (takeKeyword(L"And")) condition = std::make_unique<Both>(std::move(condition), negation());
        return condition;
    }

    Operand negation()
    {
        if (takeKeyword(L"Not")) return std::make_unique<Opposite>(negation());
        if (!takeSign(L"(")) return comparison();
        Operand condition = alternatives();
        if (!takeSign(L")")) fail();
        return condition;
    }

    Operand comparison()
    {
        const Field& field = searchedField();
        for (const wchar_t* sign : {L"<>", L"<=", L">=", L"=", L"<", L">"})
            if (takeSign(sign)) return std::make_unique<Comparison>(field, sign, valueFor(field));
        fail();
    }

    const Field& searchedField()
    {
        skipBlanks();
        const std::size_t end = rest_.find(L']');
        if (rest_.empty() || rest_[0] != L'[' || end == std::wstring_view::npos) fail();
        const std::wstring name(rest_.substr(1, end - 1));
        rest_.remove_prefix(end + 1);
        const Field* field = fieldNamed(name);
        if (!field) raise(DISP_E_EXCEPTION, L"The property \"" + name + L"\" is unknown.");
        if (field->has(Field::noFilter)) raise(DISP_E_EXCEPTION, L"Condition is not valid.");
        return *field;
    }

    Value valueFor(const Field& field)
    {
        skipBlanks();
        const bool quoted = !rest_.empty() && (rest_[0] == L'\'' || rest_[0] == L'"');
        const std::wstring text = quoted ? quotedText() : word();
        if (field.type == FieldType::text && !quoted) fail();
        try {
            const Value value(text);
            switch (field.type) {
            case FieldType::text: return value;
            case FieldType::date: return Value::date(value.asDate());
            case FieldType::number: return value.int32();
            case FieldType::boolean: return truth(text);
            }
        } catch (const automation::AutomationError&) {}
        raise(DISP_E_EXCEPTION, L"Condition is not valid.");
    }

    static Value truth(const std::wstring& text)
    {
        if (automation::equalIgnoringCase(text, L"Yes")) return true;
        if (automation::equalIgnoringCase(text, L"No")) return false;
        return Value(text).isTrue();
    }

    std::wstring quotedText()
    {
        const wchar_t quote = rest_[0];
        std::wstring text;
        for (std::size_t at = 1; at < rest_.size(); ++at) {
            if (rest_[at] == quote) {
                if (at + 1 == rest_.size() || rest_[at + 1] != quote) {
                    rest_.remove_prefix(at + 1);
                    return text;
                }
                ++at;
            }
            text += rest_[at];
        }
        fail();
    }

    std::wstring word()
    {
        const auto end = std::find_if(rest_.begin(), rest_.end(),
                                      [](wchar_t c) { return std::iswspace(c) || c == L')' || c == L'('; });
        const std::wstring text(rest_.begin(), end);
        if (text.empty()) fail();
        rest_.remove_prefix(text.size());
        return text;
    }

    std::wstring_view rest_;
};

}

std::unique_ptr<Condition> parseFilter(std::wstring_view filter)
{
    return Parser(filter).parse();
}

}
