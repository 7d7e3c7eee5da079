#include "lotus/documents.h"

#include "automation/array.h"
#include "automation/error.h"
#include "common/error_trap.h"
#include "common/text.h"

namespace hublink {

namespace {

using automation::Object;
using automation::Value;

std::wstring comparableServer(const std::wstring& name)
{
    return replaceAll(replaceAll(lowerCase(name), L"cn=", L""), L"o=", L"");
}

std::vector<Value> itemValues(const Object& document, const std::wstring& name)
{
    return automation::elementsOf(document.get(L"GetItemValue", {name}));
}

}

std::wstring firstItemValue(const Object& document, const std::wstring& item)
{
    const std::vector<Value> values = itemValues(document, item);
    if (values.empty()) throw automation::AutomationError(item, DISP_E_BADINDEX);
    return values.front().text();
}

std::optional<std::wstring> readFirstNonEmptyItemValue(const Object& document, const std::vector<std::wstring>& items)
{
    std::optional<std::wstring> first;
    trapErrors([&] {
        for (const std::wstring& name : items) {
            for (const Value& value : itemValues(document, name)) {
                const std::wstring text = value.text();
                if (text.empty()) continue;
                first = text;
                return;
            }
        }
        first = L"";
    });
    return first;
}

std::wstring FirstNonEmptyItemValue(const Object& document, const std::vector<std::wstring>& items)
{
    return readFirstNonEmptyItemValue(document, items).value_or(L"");
}

bool IsCurrentDocument(const Object& document, Object& frontDocument)
{
    bool isCurrent = false;
    trapErrors([&] {
        frontDocument = notesWorkspace().get(L"CURRENTDOCUMENT").object();
        if (!frontDocument) return;
        const Object current = frontDocument.get(L"DOCUMENT").object();
        if (!current) return;
        isCurrent = document.get(L"NoteId").text() == current.get(L"NoteId").text();
    });
    return isCurrent;
}

const std::wstring& DatabaseNames::readOnce(std::optional<std::wstring>& answer, const wchar_t* member) const
{
    if (!answer) answer = database_.get(member).text();
    return *answer;
}

bool IsSameDatabase(const DatabaseNames& database, const std::wstring& server, const std::wstring& fileName)
{
    bool isSame = false;
    trapErrors([&] {
        if (comparableServer(server) != comparableServer(database.server())) return;
        const std::wstring sought = lowerCase(fileName);
        isSame = sought == lowerCase(database.filePath()) || sought == lowerCase(database.fileName());
    });
    return isSame;
}

void saveDocument(const Object& document)
{
    constexpr bool force = true;
    constexpr bool createResponse = true; // says nothing beside `force`
    document.call(L"save", {force, createResponse});
}

void openDocument(const LotusBaseRef& base, const Object& document, OpenFor purpose)
{
    const Object workspace = notesWorkspace();
    workspace.call(L"OpenDatabase", {base.Server, base.Base});
    workspace.call(L"EDITDOCUMENT", {purpose == OpenFor::editing, document});
}

}
