#include "check/ini_values.h"

#include "automation/conversion.h"
#include "automation/error.h"
#include "automation/text.h"
#include "common/connector_settings.h"
#include "common/settings_table.h"
#include "common/text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>

namespace hublink::check {

namespace {

using automation::toAnsi;
using automation::toWide;

constexpr std::size_t maxUnknownGroupwares = 20; // a value has room for five hundred
constexpr const char* nothing = "\x01"; // no value in a file is this

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
    bool judgeKey(const Setting& setting);

    bool judgeKeys(std::span<const Setting> settings)
    {
        return std::all_of(settings.begin(), settings.end(), [&](const Setting& each) { return judgeKey(each); });
    }

    void judgeOutlook();
    void judgeLotus();
    void judgeBooks();
    void judgeBook(const std::string& section);
    void judgeOrder();
    Finding toggleFinding(const Setting& setting, const std::wstring& value, bool isThere) const;
    bool judgeNumber(const Setting& setting, const std::wstring& value);
    void judgeGroupwares(const Setting& setting, const std::wstring& value);
    void judgeText(const Setting& setting, const std::wstring& value);

    const ProgramSettings& settings_;
    const IniTexts& texts_;
    const IniFile ini_;
    Findings findings_;
};

bool Judge::judgeKey(const Setting& setting)
{
    const bool isThere = ini_.read(setting.section, setting.key, nothing) != toWide(nothing);
    const std::wstring value = ini_.read(setting);
    const std::wstring section = toWide(setting.section);
    const std::wstring key = toWide(setting.key);
    if (setting.kind == SettingKind::toggle || setting.kind == SettingKind::stopRequest) {
        add(toggleFinding(setting, value, isThere));
        return true;
    }
    if (!isThere) {
        add(value.empty() ? ok(texts_.absentEmpty, section, key) : ok(texts_.absent, section, key, value));
        return true;
    }
    switch (setting.kind) {
    case SettingKind::pause:
    case SettingKind::number: return judgeNumber(setting, value);
    case SettingKind::groupwares: judgeGroupwares(setting, value); break;
    default: judgeText(setting, value); break;
    }
    return true;
}

Finding Judge::toggleFinding(const Setting& setting, const std::wstring& value, bool isThere) const
{
    const std::wstring section = toWide(setting.section);
    const std::wstring key = toWide(setting.key);
    const bool isOn = value == L"true";
    if (!isThere) return isOn ? ok(texts_.absentOn, section, key) : ok(texts_.absentOff, section, key);
    if (setting.kind == SettingKind::stopRequest && isOn) return note(texts_.stopRequest);
    if (isOn) return ok(texts_.on, section, key);
    if (isPlainOff(value)) return ok(texts_.off, section, key, value);
    const Words shown = isWellKnown(value) ? Words(value) : personal(value);
    return meansOn(value) ? problem(texts_.offThoughMeantOn, section, key, shown)
                          : note(texts_.offForOtherText, section, key, shown);
}

bool Judge::judgeNumber(const Setting& setting, const std::wstring& value)
{
    const std::wstring section = toWide(setting.section);
    const std::wstring key = toWide(setting.key);
    const std::optional<int> number = numberOf(value);
    if (!number) {
        add(problem(texts_.notNumber, section, key, personal(value)));
        return false;
    }
    const std::wstring text = std::to_wstring(*number);
    add(setting.kind == SettingKind::pause ? ok(texts_.milliseconds, section, key, text)
                                           : ok(texts_.value, section, key, text));
    return true;
}

void Judge::judgeGroupwares(const Setting& setting, const std::wstring& value)
{
    const std::wstring section = toWide(setting.section);
    const std::wstring key = toWide(setting.key);
    if (value.empty()) {
        add(ok(texts_.empty, section, key));
        return;
    }
    std::wstring known;
    std::set<std::wstring> unknown;
    for (const std::wstring& each : split(value, L',')) {
        if (isOneOf(each, {L"OUTLOOK", L"LOTUS"})) {
            known += (known.empty() ? L"" : L",") + each;
            continue;
        }
        if (unknown.size() == maxUnknownGroupwares || !unknown.insert(each).second) continue;
        const bool isMisspelt = isOneOf(lowerCase(trim(each)), {L"outlook", L"lotus", L""});
        add(problem(texts_.unknownGroupware, key, isMisspelt ? Words(each) : personal(each)));
    }
    if (!known.empty()) add(ok(texts_.value, section, key, known));
}

void Judge::judgeText(const Setting& setting, const std::wstring& value)
{
    const std::wstring section = toWide(setting.section);
    const std::wstring key = toWide(setting.key);
    if (value.empty()) {
        add(ok(texts_.empty, section, key));
        return;
    }
    add(ok(texts_.value, section, key, personal(value)));
    if (setting.kind == SettingKind::base && split(value, L'|').size() < 5)
        add(problem(texts_.baseParts, section, key));
}

bool Judge::judgeGeneral()
{
    for (const Setting& each : settingsIn("Application")) {
        // Without a groupware the program reads no further.
        if (each.kind == SettingKind::pause && !usesGroupware(settings_.general())) break;
        if (!judgeKey(each)) return false;
    }
    if (!ini_.read(setting("Application", "type1")).empty()) add(note(texts_.typeReplaced));
    if (!usesGroupware(settings_.general())) {
        add(problem(texts_.noGroupware));
        return false;
    }
    return judgeKeys(settingsIn("AllApplication"));
}

void Judge::judgeOutlook()
{
    for (const Setting& each : settingsIn("outlook")) {
        if (!judgeKey(each)) return;
        // Its four keys are read only where it is on.
        if (each.key == std::string_view("Extension") && !ini_.readSwitch(each)) return;
    }
}

void Judge::judgeLotus()
{
    judgeKeys(settingsIn("lotus personnel log description"));
    const auto general = settingsIn("lotus");
    if (!judgeKeys(general.first(1))) return;
    if (settings_.lotus().nbPublicAddressBook < 1) {
        add(problem(texts_.readingEnds, toWide(general[0].key)));
        return;
    }
    judgeBooks();
    judgeKeys(general.subspan(1, 1));
    if (!settings_.lotusIsWhole()) {
        add(problem(texts_.readingEnds, toWide(general[1].key)));
        return;
    }
    judgeOrder();
    judgeKeys(general.subspan(2));
    judgeKeys(settingsIn("lotus call log description"));
}

void Judge::judgeBooks()
{
    // A number of books that somebody mistyped would make a report of thousands of lines.
    constexpr int mostBooks = 50;
    const int count = std::min<int>(settings_.lotus().nbPublicAddressBook, mostBooks);
    std::vector<std::wstring> sections = ini_.sections();
    for (std::wstring& section : sections) section = lowerCase(trim(section));
    for (int number = 1; number <= count; ++number) {
        const std::wstring section = toWide(bookSection) + std::to_wstring(number);
        if (std::find(sections.begin(), sections.end(), section) != sections.end()) judgeBook(toAnsi(section));
        else add(problem(texts_.bookNotDescribed, section));
    }
}

void Judge::judgeBook(const std::string& section)
{
    for (const Setting& each : settingsIn(bookSection)) judgeKey(each.in(section.c_str()));
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
