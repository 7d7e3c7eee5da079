#include "desk/lotus/settings.h"

#include "desk/common/text.h"
#include "desk/lotus/naming.h"

#include <stdexcept>

namespace desk::lotus {

namespace {

// Whether the text is the first of two words; anything else is refused.
bool isFirst(std::wstring_view text, const wchar_t* first, const wchar_t* other, const char* command)
{
    if (text != first && text != other) throw std::runtime_error(command + (" " + utf8(first)) + ", or " + utf8(other));
    return text == first;
}

std::wstring setAvailable(Notes& notes, std::wstring_view text)
{
    const SharedDatabase database = databaseNamed(notes, takeWord(text));
    database->canBeOpened = isFirst(text, L"on", L"off", "available DATABASE");
    notes.changed();
    return L"ok";
}

std::wstring setModified(const Notes& notes, std::wstring_view text)
{
    const SharedDatabase database = databaseNamed(notes, takeWord(text));
    database->tellModified(dateFromIso(text));
    return L"ok";
}

std::wstring setIndex(const Notes& notes, std::wstring_view text)
{
    const SharedDatabase database = databaseNamed(notes, takeWord(text));
    const bool isStale = isFirst(text, L"stale", L"updated", "index DATABASE");
    if (!database->fullTextIndexed) throw std::runtime_error("the database has no full-text index");
    isStale ? database->leaveIndexBehind() : database->updateIndex();
    return L"ok";
}

// Whether it is a command of that kind; if so, the behaviour is another one now.
bool changeBehaviour(Behaviour& behaviour, const std::wstring& word, std::wstring_view text)
{
    if (word == L"missing") behaviour.missingItemIsArray = isFirst(text, L"array", L"text", "missing");
    else if (word == L"arrays") behaviour.typedArrays = !isFirst(text, L"variant", L"typed", "arrays");
    else if (word == L"identifiers") behaviour.ownIdentifiers = isFirst(text, L"own", L"shared", "identifiers");
    else if (word == L"server-name") behaviour.hasServerName = isFirst(text, L"on", L"off", "server-name");
    else if (word == L"data-folder") behaviour.dataFolder = text;
    else return false;
    return true;
}

}

std::optional<std::wstring> changeSetting(Notes& notes, const std::wstring& word, std::wstring_view rest)
{
    if (word == L"available") return setAvailable(notes, rest);
    if (word == L"modified") return setModified(notes, rest);
    if (word == L"index") return setIndex(notes, rest);
    if (!changeBehaviour(notes.behaviour, word, rest)) return std::nullopt;
    notes.changed();
    return L"ok";
}

}
