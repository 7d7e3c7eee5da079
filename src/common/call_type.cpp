#include "common/call_type.h"

#include "automation/text.h"
#include "common/dictionary.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace hublink {

namespace {

struct Translation {
    const wchar_t* text;
    const char* key;
};

constexpr std::array<Translation, 6> translations{{
    {L"Incoming call unanswered", "ST_FILTRE_LST4"},
    {L"Incoming call acknowledged", "ST_FILTRE_LST6"},
    {L"Incoming call answered", "ST_FILTRE_LST2"},
    {L"Outgoing call unanswered", "ST_FILTRE_LST3"},
    {L"Outgoing call acknowledged", "ST_FILTRE_LST5"},
    {L"Outgoing call answered", "ST_FILTRE_LST1"},
}};

std::wstring historyText(const Dictionary& dictionary, const char* key, const char* fallback)
{
    char buffer[260];
    const DWORD length = dictionary.GetElt("history", key, fallback, buffer, sizeof buffer);
    return automation::toWide({buffer, length});
}

std::wstring withoutAccessKey(std::wstring text)
{
    std::erase(text, L'&');
    return text;
}

// The softphone numbers its calls' states and names none of them. These are the ones in which
// nobody has answered; it tells no more of what sets the four apart.
bool isUnanswered(std::int32_t state)
{
    return state == 6 || state == 7 || state == 12 || state == 14;
}

}

std::wstring callTypeText(bool incoming, const automation::Value& state,
                          const std::function<automation::Value()>& acknowledged)
{
    const std::wstring direction = incoming ? L"Incoming call" : L"Outgoing call";
    if (isUnanswered(state.int32())) return direction + L" unanswered";
    return direction + (acknowledged().int32() == 1 ? L" acknowledged" : L" answered");
}

std::wstring unknownCallerText(const Dictionary& dictionary)
{
    return withoutAccessKey(historyText(dictionary, "TI_NAMECALL_UNKNOWN", "No identity"));
}

std::wstring TranslateCallType(const std::wstring& text, const Dictionary& dictionary)
{
    const auto found = std::find_if(translations.begin(), translations.end(),
                                    [&](const Translation& candidate) { return text == candidate.text; });
    if (found == translations.end()) return text;
    const std::wstring translated = historyText(dictionary, found->key, "");
    return translated.empty() ? text : withoutAccessKey(translated);
}

}
