#include "check/ini_values.h"

#include "automation/conversion.h"
#include "automation/error.h"
#include "automation/text.h"
#include "check/ini_keys.h"
#include "common/connector_settings.h"
#include "common/text.h"

#include <algorithm>
#include <array>
#include <optional>

namespace hublink::check {

namespace {

using automation::ansi;
using automation::wide;

constexpr const char* nothing = "\x01"; // no value in a file is this

bool isOneOf(const std::wstring& text, std::initializer_list<const wchar_t*> words)
{
    return std::any_of(words.begin(), words.end(), [&](const wchar_t* word) { return text == word; });
}

bool meansOn(const std::wstring& value)
{
    return isOneOf(lowerCase(value), {L"true", L"1", L"-1", L"yes", L"on", L"oui", L"vrai", L"x"});
}

bool isPlainOff(const std::wstring& value)
{
    return isOneOf(value, {L"false", L"0", L""});
}

bool isWellKnown(const std::wstring& value)
{
    return meansOn(value) || isOneOf(lowerCase(value), {L"false", L"0", L"", L"no", L"off", L"non", L"faux"});
}

std::optional<int> numberOf(const std::wstring& value)
try {
    return automation::int16FromText(value);
} catch (const automation::AutomationError&) {
    return std::nullopt;
}

class Judge {
public:
    Judge(const ProgramSettings& settings, const IniTexts& texts)
        : settings_(settings), texts_(texts), ini_(settings.general().szFileConnectorIni)
    {}

    Findings judge() &&
    {
        if (judgeGeneral()) {
            if (settings_.general().bgWithOutlook) judgeOutlook();
            else add(ok(texts_.outlookNotRead));
            if (settings_.general().bgWithLotus) judgeLotus();
            else add(ok(texts_.lotusNotRead));
        }
        return std::move(findings_);
    }

private:
    void add(Finding finding) { findings_.push_back(std::move(finding)); }

    // Both return false where the program's reading ends.
    bool judgeGeneral();
    bool judgeKey(const std::string& section, const IniKey& key);

    bool judgeKeys(const std::string& section, std::span<const IniKey> keys)
    {
        return std::all_of(keys.begin(), keys.end(), [&](const IniKey& key) { return judgeKey(section, key); });
    }

    void judgeOutlook();
    void judgeLotus();
    void judgeBooks();
    void judgeOrder();
    void judgeToggle(const Words& section, const IniKey& key, const std::wstring& value, bool isThere);
    bool judgeNumber(const Words& section, const IniKey& key, const std::wstring& value);
    void judgeGroupwares(const Words& section, const IniKey& key, const std::wstring& value);
    void judgeText(const Words& section, const IniKey& key, const std::wstring& value);

    const ProgramSettings& settings_;
    const IniTexts& texts_;
    const IniFile ini_;
    Findings findings_;
};

bool Judge::judgeKey(const std::string& section, const IniKey& key)
{
    const bool isThere = ini_.read(section.c_str(), key.name, nothing) != wide(nothing);
    const std::wstring value = ini_.read(section.c_str(), key.name, key.fallback);
    const Words name = wide(section);
    if (key.kind == Kind::toggle || key.kind == Kind::stopRequest) {
        judgeToggle(name, key, value, isThere);
        return true;
    }
    if (!isThere) {
        add(value.empty() ? ok(texts_.absentEmpty, name, wide(key.name))
                          : ok(texts_.absent, name, wide(key.name), value));
        return true;
    }
    switch (key.kind) {
    case Kind::pause:
    case Kind::number: return judgeNumber(name, key, value);
    case Kind::groupwares: judgeGroupwares(name, key, value); break;
    default: judgeText(name, key, value); break;
    }
    return true;
}

void Judge::judgeToggle(const Words& section, const IniKey& key, const std::wstring& value, bool isThere)
{
    const std::wstring name = wide(key.name);
    const bool isOn = value == L"true";
    if (!isThere) return add(isOn ? ok(texts_.absentOn, section, name) : ok(texts_.absentOff, section, name));
    if (key.kind == Kind::stopRequest && isOn) return add(note(texts_.stopRequest));
    if (isOn) return add(ok(texts_.on, section, name));
    if (isPlainOff(value)) return add(ok(texts_.off, section, name, value));
    const Words shown = isWellKnown(value) ? Words(value) : personal(value);
    add(meansOn(value) ? problem(texts_.offThoughMeantOn, section, name, shown)
                       : note(texts_.offForOtherText, section, name, shown));
}

bool Judge::judgeNumber(const Words& section, const IniKey& key, const std::wstring& value)
{
    const std::optional<int> number = numberOf(value);
    if (!number) {
        add(problem(texts_.notNumber, section, wide(key.name), personal(value)));
        return false;
    }
    const std::wstring text = std::to_wstring(*number);
    add(key.kind == Kind::pause ? ok(texts_.milliseconds, section, wide(key.name), text)
                                : ok(texts_.value, section, wide(key.name), text));
    return true;
}

void Judge::judgeGroupwares(const Words& section, const IniKey& key, const std::wstring& value)
{
    if (value.empty()) return add(ok(texts_.empty, section, wide(key.name)));
    std::wstring known;
    for (const std::wstring& each : split(value, L',')) {
        if (isOneOf(each, {L"OUTLOOK", L"LOTUS"})) {
            known += (known.empty() ? L"" : L", ") + each;
            continue;
        }
        const bool isMisspelt = isOneOf(lowerCase(trim(each)), {L"outlook", L"lotus", L""});
        add(problem(texts_.unknownGroupware, wide(key.name), isMisspelt ? Words(each) : personal(each)));
    }
    if (!known.empty()) add(ok(texts_.value, section, wide(key.name), known));
}

void Judge::judgeText(const Words& section, const IniKey& key, const std::wstring& value)
{
    const std::wstring name = wide(key.name);
    if (value.empty()) return add(ok(texts_.empty, section, name));
    add(ok(texts_.value, section, name, personal(value)));
    if (key.kind == Kind::base && split(value, L'|').size() < 5) add(problem(texts_.baseParts, section, name));
}

bool Judge::judgeGeneral()
{
    for (const IniKey& key : keysOf(wide(applicationSection))) {
        // Without a groupware the program reads no further.
        if (key.kind == Kind::pause && !namesGroupware(settings_.general())) break;
        if (!judgeKey(applicationSection, key)) return false;
    }
    if (!ini_.read(applicationSection, "type1", "").empty()) add(note(texts_.typeReplaced));
    if (!namesGroupware(settings_.general())) {
        add(problem(texts_.noGroupware));
        return false;
    }
    return judgeKeys(featuresSection, keysOf(wide(featuresSection)));
}

void Judge::judgeOutlook()
{
    for (const IniKey& key : keysOf(wide(outlookSection))) {
        if (!judgeKey(outlookSection, key)) return;
        // Its four keys are read only where it is on.
        if (key.name == std::string_view("Extension") && !ini_.readSwitch(outlookSection, key.name, "")) return;
    }
}

void Judge::judgeLotus()
{
    judgeKeys(personalLogSection, keysOf(wide(personalLogSection)));
    const auto keys = keysOf(wide(lotusSection));
    if (!judgeKeys(lotusSection, keys.first(1))) return;
    if (settings_.lotus().nbPublicAddressBook < 1) return add(problem(texts_.readingEnds, wide(keys[0].name)));
    judgeBooks();
    judgeKeys(lotusSection, keys.subspan(1, 1));
    if (!settings_.lotusIsWhole()) return add(problem(texts_.readingEnds, wide(keys[1].name)));
    judgeOrder();
    judgeKeys(lotusSection, keys.subspan(2));
    judgeKeys(callLogSection, keysOf(wide(callLogSection)));
}

void Judge::judgeBooks()
{
    // A number of books that somebody mistyped would make a report of thousands of lines.
    constexpr int mostBooks = 50;
    const int count = std::min<int>(settings_.lotus().nbPublicAddressBook, mostBooks);
    std::vector<std::wstring> sections = ini_.sections();
    for (std::wstring& section : sections) section = lowerCase(trim(section));
    for (int number = 1; number <= count; ++number) {
        const std::wstring section = bookSectionBeginning + std::to_wstring(number);
        if (std::find(sections.begin(), sections.end(), section) != sections.end())
            judgeKeys(ansi(section), bookKeys());
        else add(problem(texts_.bookNotDescribed, section));
    }
}

void Judge::judgeOrder()
{
    std::wstring names;
    const auto& books = settings_.lotus().LotusAddressBooks;
    for (const LotusAddressBook& book : books) names += (names.empty() ? L"" : L", ") + book.Base;
    add(ok(texts_.booksInOrder, books.size(), personal(names)));
    for (std::size_t k = 0; k < books.size(); ++k)
        if (books[k].ViewTel.empty() && books[k].MainView.empty()) add(note(texts_.bookWithoutViews, k + 1));
    if (settings_.lotus().nSelectedPersonal < 0) add(note(texts_.noPersonalBook));
}

}

Findings valueFindings(const ProgramSettings& settings, const IniTexts& texts)
{
    return Judge(settings, texts).judge();
}

}
