#include "desk/outlook/setup.h"

#include "automation/text.h"
#include "desk/common/text.h"

#include <cwchar>
#include <stdexcept>
#include <string>

namespace desk::outlook {

namespace {

constexpr std::pair<MissingCell, const wchar_t*> missingCells[] = {
    {MissingCell::empty, L"empty"}, {MissingCell::null, L"null"}, {MissingCell::notFound, L"notfound"}};

[[noreturn]] void refuse(std::wstring_view text, const char* values)
{
    throw std::runtime_error("\"" + utf8(text) + "\" is none of " + values);
}

Version versionOf(std::wstring_view text)
{
    for (const Version version : {Version::v2003, Version::v2007, Version::v2016})
        if (text == std::to_wstring(static_cast<int>(version))) return version;
    refuse(text, "the versions 2003, 2007, 2016");
}

DWORD delayOf(std::wstring_view text)
{
    return text.empty() ? 0 : numberOf(text, "milliseconds");
}

GuardSetting guardOf(std::wstring_view text)
{
    using Answer = GuardSetting::Answer;
    const std::wstring answer = takeWord(text);
    if (answer == L"off" && text.empty()) return {};
    if (answer == L"allow") return {Answer::allow, delayOf(text)};
    if (answer != L"deny") refuse(answer, "off, allow [MS], deny [HRESULT]");
    const HRESULT refusal = text.empty() ? E_ABORT : static_cast<HRESULT>(numberOf(text, "HRESULT"));
    return {Answer::deny, 0, refusal};
}

std::wstring textOf(const GuardSetting& guard)
{
    if (guard.answer == GuardSetting::Answer::off) return L"off";
    if (guard.answer == GuardSetting::Answer::allow) return L"allow " + std::to_wstring(guard.delay);
    wchar_t code[16];
    swprintf(code, 16, L"0x%08lX", static_cast<unsigned long>(guard.refusal));
    return std::wstring(L"deny ") + code;
}

MissingCell missingCellOf(std::wstring_view text)
{
    for (const auto& [cell, name] : missingCells)
        if (text == name) return cell;
    refuse(text, "empty, null, notfound");
}

RowOrder rowOrderOf(std::wstring_view text)
{
    if (text == L"folder") return RowOrder::folder;
    if (text == L"reversed") return RowOrder::reversed;
    refuse(text, "folder, reversed");
}

ArrayShape arrayShapeOf(std::wstring_view text)
{
    if (text == L"columns") return ArrayShape::columnsFirst;
    if (text == L"rows") return ArrayShape::rowsFirst;
    refuse(text, "columns, rows");
}

CreationSetting creationOf(std::wstring_view text)
{
    const std::wstring how = takeWord(text);
    if (how == L"works" && text.empty()) return {};
    if (how != L"fails") refuse(how, "works, fails [MS]");
    return {true, delayOf(text)};
}

}

void change(Setup& setup, std::wstring_view setting, std::wstring_view text)
{
    const auto is = [&](const wchar_t* name) { return automation::equalIgnoringCase(setting, name); };
    if (is(L"Version")) setup.version = versionOf(text);
    else if (is(L"Guard")) setup.guard = guardOf(text);
    else if (is(L"MissingCell")) setup.missingCell = missingCellOf(text);
    else if (is(L"LongestText")) setup.maxTextLength = numberOf(text, "longest text");
    else if (is(L"RowOrder")) setup.rowOrder = rowOrderOf(text);
    else if (is(L"ArrayShape")) setup.arrayShape = arrayShapeOf(text);
    else if (is(L"HiddenColumn")) setup.hiddenColumn = text;
    else if (is(L"Identifiers")) setup.identifiers = numberOf(text, "identifiers");
    else if (is(L"Creation")) setup.creation = creationOf(text);
    else throw std::runtime_error("[outlook] has no setting \"" + utf8(setting) + "\"");
}

StoreRecord recordOf(const Setup& setup)
{
    StoreRecord record{L"outlook", {}, 0};
    const Setup usual;
    if (setup.version != usual.version) record.add(L"Version", std::to_wstring(static_cast<int>(setup.version)));
    if (setup.guard != usual.guard) record.add(L"Guard", textOf(setup.guard));
    for (const auto& [cell, name] : missingCells)
        if (setup.missingCell == cell && cell != usual.missingCell) record.add(L"MissingCell", name);
    if (setup.maxTextLength != usual.maxTextLength) record.add(L"LongestText", std::to_wstring(setup.maxTextLength));
    if (setup.rowOrder != usual.rowOrder) record.add(L"RowOrder", L"reversed");
    if (setup.arrayShape != usual.arrayShape) record.add(L"ArrayShape", L"rows");
    if (setup.hiddenColumn != usual.hiddenColumn) record.add(L"HiddenColumn", setup.hiddenColumn);
    if (setup.identifiers != usual.identifiers) record.add(L"Identifiers", std::to_wstring(setup.identifiers));
    if (setup.creation != usual.creation) record.add(L"Creation", L"fails " + std::to_wstring(setup.creation.delay));
    return record;
}

}
