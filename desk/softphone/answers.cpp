#include "desk/softphone/answers.h"

#include "automation/object.h"
#include "desk/common/text.h"

#include <cwchar>
#include <stdexcept>

namespace desk::softphone {

namespace {

using automation::Value;

Value numberValue(const std::wstring& text)
{
    wchar_t* end = nullptr;
    const long number = std::wcstol(text.c_str(), &end, 10);
    if (text.empty() || *end) throw std::runtime_error("answer: \"" + utf8(text) + "\" is no number");
    return number;
}

Value truthValue(const std::wstring& text)
{
    if (text != L"true" && text != L"false") throw std::runtime_error("answer: truth is true or false");
    return text == L"true";
}

Value valueOf(const std::wstring& kind, std::wstring_view rest)
{
    if (kind == L"nothing") return automation::Object();
    if (kind == L"empty") return Value();
    if (kind == L"text") return unescaped(rest);
    if (kind == L"number") return numberValue(takeWord(rest));
    if (kind == L"truth") return truthValue(takeWord(rest));
    throw std::runtime_error("answer: \"" + utf8(kind) + "\" is none of nothing, empty, text, number, truth");
}

}

void Answers::set(std::wstring_view text)
{
    const std::wstring member = takeWord(text);
    if (member == L"off" && text.empty()) {
        clear();
        return;
    }
    if (member.find(L'.') == std::wstring::npos) throw std::runtime_error("answer: Class.Member is missing");
    const std::wstring kind = takeWord(text);
    planned_.insert_or_assign(lowerCase(member), valueOf(kind, text));
}

const Value* Answers::find(std::wstring_view className, std::wstring_view member) const
{
    if (planned_.empty()) return nullptr;
    const auto found = planned_.find(lowerCase(std::wstring(className) + L"." + std::wstring(member)));
    return found == planned_.end() ? nullptr : &found->second;
}

}
