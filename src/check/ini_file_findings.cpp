#include "check/ini_file_findings.h"

#include "automation/owners.h"
#include "automation/system_message.h"
#include "automation/text.h"
#include "check/ini_keys.h"
#include "check/likeness.h"
#include "check/registry_view.h"
#include "common/files.h"
#include "common/text.h"

#include <optional>
#include <unordered_map>

namespace hublink::check {

namespace {

using automation::equalIgnoringCase;
using automation::toWide;

// Whether bytes that the file is opened with can be read at all; `bytes` gets them.
DWORD readBytes(const std::wstring& file, std::string& bytes)
{
    const automation::Handle handle = automation::ownedIfValid(
        CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    LARGE_INTEGER size;
    if (!handle || !GetFileSizeEx(handle.get(), &size)) return GetLastError();
    if (size.QuadPart > static_cast<LONGLONG>(maxIniSize)) return ERROR_FILE_TOO_LARGE;
    bytes.resize(static_cast<std::size_t>(size.QuadPart));
    DWORD count = 0;
    if (!ReadFile(handle.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr)) return GetLastError();
    bytes.resize(count);
    return ERROR_SUCCESS;
}

Finding missing(const IniPlace& place, const IniTexts& texts)
{
    if (!isFolder(place.connectorFolder))
        return problem(FileExist(place.connectorFolder) ? texts.fileInPlaceOfFolder : texts.noFolder,
                       path(place.connectorFolder));
    if (!place.defaultFile.empty()) return note(texts.toBeInstalled, path(place.file));
    return problem(texts.missing, path(place.file));
}

bool isMissing(DWORD code)
{
    return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND || code == ERROR_INVALID_NAME ||
           code == ERROR_BAD_PATHNAME;
}

Finding unreadable(const IniPlace& place, DWORD code, const IniTexts& texts)
{
    if (isMissing(code)) return missing(place, texts);
    if (code == ERROR_FILE_TOO_LARGE) return problem(texts.tooLarge, path(place.file));
    return problem(texts.unreadable, path(place.file), automation::systemMessage(code));
}

// What the program makes of the path before it looks for a file.
bool isUsable(const IniPlace& place, const IniTexts& texts, Findings& findings)
{
    if (place.connectorFolder.empty()) findings.push_back(problem(texts.noSoftphone, path(place.file)));
    else if (toWide(automation::toAnsi(place.file)) != place.file)
        findings.push_back(problem(texts.beyondCodePage, path(place.file)));
    else if (isFolder(place.file)) findings.push_back(problem(texts.isFolder, path(place.file)));
    else return true;
    return false;
}

void judgeEncoding(const IniDocument& document, const IniTexts& texts, Findings& findings)
{
    switch (document.encoding) {
    case Encoding::ansi: findings.push_back(ok(texts.ansi)); break;
    case Encoding::utf8:
    case Encoding::utf8WithMark:
        findings.push_back(document.markHidesLine ? problem(texts.utf8Mark) : ok(texts.utf8));
        break;
    case Encoding::utf16: findings.push_back(ok(texts.utf16)); break;
    case Encoding::utf16Reversed: findings.push_back(problem(texts.utf16Reversed)); break;
    case Encoding::noText: findings.push_back(problem(texts.notText)); break;
    }
    if (document.losesCharacters) findings.push_back(problem(texts.lostCharacters));
}

constexpr std::size_t maxValueLength = 1023; // as IniFile reads it

// Of a binary file there would be thousands.
constexpr std::size_t maxOfEachKind = 20;
constexpr std::size_t maxOfAll = 10 * maxOfEachKind;

void noteLines(const std::vector<std::size_t>& lines, const AdvisedText<1>& text, Findings& findings)
{
    for (std::size_t k = 0; k < lines.size() && k < maxOfEachKind; ++k) findings.push_back(note(text, lines[k]));
}

// A name that the program knows is nobody's; any other may be.
Words nameWords(const std::wstring& name, bool known)
{
    return known ? Words(name) : personal(name);
}

// The names so far, and the line in which each stands first. A look at all names for each one would
// take minutes for a file of ten thousands.
class FirstLines {
public:
    // The line in which the name has stood before, if it has.
    std::optional<std::size_t> before(const IniLine& line)
    {
        const auto [first, isNew] = lines_.try_emplace(lowerCase(line.name), line.line);
        return isNew ? std::nullopt : std::optional(first->second);
    }

private:
    std::unordered_map<std::wstring, std::size_t> lines_;
};

bool hasKey(std::span<const Setting> keys, const std::wstring& name)
{
    for (const Setting& each : keys)
        if (equalIgnoringCase(name, toWide(each.key))) return true;
    return false;
}

// The section that a key belongs to, "" for one that no section has.
std::wstring sectionOf(const std::wstring& key)
{
    for (const Setting& each : settingsTable)
        if (!isOfBook(each) && equalIgnoringCase(key, toWide(each.key))) return toWide(each.section);
    return L"";
}

std::wstring mostSimilarKey(std::span<const Setting> keys, const std::wstring& name)
{
    for (const Setting& each : keys)
        if (areAlike(name, toWide(each.key))) return toWide(each.key);
    return L"";
}

Finding unknownKey(const IniSection& section, const Words& name, const IniLine& key, const IniTexts& texts)
{
    const std::wstring like = mostSimilarKey(keysOf(section.name), key.name);
    if (!like.empty()) return problem(texts.likelyKey, name, personal(key.name), key.line, like);
    const std::wstring home = sectionOf(key.name);
    if (!home.empty()) return problem(texts.keyElsewhere, name, key.name, key.line, home);
    return note(texts.unknownKey, name, personal(key.name), key.line);
}

void judgeKeys(const IniSection& section, const Words& name, const IniTexts& texts, Findings& findings)
{
    const auto known = keysOf(section.name);
    FirstLines lines;
    for (const IniLine& key : section.keys) {
        if (findings.size() > maxOfAll) return;
        const bool isKnown = hasKey(known, key.name);
        if (const auto first = lines.before(key))
            findings.push_back(problem(texts.keyTwice, name, nameWords(key.name, isKnown), *first, key.line));
        else if (!isKnown) findings.push_back(unknownKey(section, name, key, texts));
        else if (key.valueSize > maxValueLength) findings.push_back(problem(texts.cut, name, key.name));
    }
}

void judgeSections(const IniDocument& document, int books, const IniTexts& texts, Findings& findings)
{
    FirstLines lines;
    for (const IniSection& section : document.sections) {
        if (findings.size() > maxOfAll) return;
        const bool isKnown = !keysOf(section.name).empty();
        const Words name = nameWords(section.name, isKnown && !isNumberedOddly(section.name));
        if (const auto first = lines.before(section))
            findings.push_back(problem(texts.sectionTwice, name, *first, section.line));
        else if (!isKnown) findings.push_back(note(texts.unknownSection, name, section.line));
        else if (bookNumber(section.name) > books) findings.push_back(note(texts.bookNotCounted, name, section.line));
        else judgeKeys(section, name, texts, findings);
    }
}

}

IniReading readIni(const IniPlace& place, const IniTexts& texts, Findings& findings)
{
    if (!isUsable(place, texts, findings)) return {};
    std::string bytes;
    DWORD code = readBytes(place.file, bytes);
    if (code == ERROR_SUCCESS) {
        findings.push_back(ok(texts.file, path(place.file)));
        return {place.file, parseIni(bytes)};
    }
    findings.push_back(unreadable(place, code, texts));
    // The first start copies the default file, if there is a folder to copy it into.
    if (!isMissing(code) || !isFolder(place.connectorFolder) || place.defaultFile.empty()) return {};
    code = readBytes(place.defaultFile, bytes);
    return code == ERROR_SUCCESS ? IniReading{place.defaultFile, parseIni(bytes)} : IniReading{};
}

Findings writingFindings(const IniDocument& document, int books, const IniTexts& texts)
{
    Findings findings;
    judgeEncoding(document, texts, findings);
    noteLines(document.strayLines, texts.strayLine, findings);
    noteLines(document.controlLines, texts.controlCharacter, findings);
    judgeSections(document, books, texts, findings);
    const bool hasMore = findings.size() > maxOfAll || document.strayLines.size() > maxOfEachKind ||
                         document.controlLines.size() > maxOfEachKind;
    if (findings.size() > maxOfAll) findings.erase(findings.begin() + maxOfAll, findings.end());
    if (hasMore) findings.push_back(note(texts.moreLeftOut));
    return findings;
}

}
