#include "lotus/log_document.h"

#include "common/error_trap.h"
#include "lotus/documents.h"

namespace hublink {

namespace {

using automation::Object;
using automation::Value;

constexpr const wchar_t* author = L"Connector Pavex ";

void writeFirstLine(const Object& document, const PersonalLogDescription& items, const Value& now,
                    const std::wstring& line)
{
    document.put(L"Form", items.Form);
    document.put(L"Type", items.TypeForm);
    document.call(L"AppendItemValue", {items.serverItem, author});
    document.call(L"AppendItemValue", {items.Body, line});
    document.call(L"AppendItemValue", {items.Events, author});
    document.call(L"AppendItemValue", {items.StartTime, now});
}

void appendLine(const Object& document, const PersonalLogDescription& items, const Value& now, const std::wstring& line)
{
    const std::wstring text = firstItemValue(document, items.Body) + line;
    document.call(L"RemoveItem", {items.Body});
    document.call(L"AppendItemValue", {items.Body, text});
    document.call(L"AppendItemValue", {items.FinishTime, now});
}

}

void WriteLotusLog(LotusSession& session, const std::wstring& text)
{
    if (session.LotusMustInit) return;
    trapErrors([&] {
        const bool isNew = !session.LogDocument || session.NewLogDocument;
        if (isNew) {
            const Object database = session.LogDatabase;
            session.LogDocument = database.get(L"CREATEDOCUMENT").object();
        }
        const Object document = session.LogDocument;
        if (!document) return;
        const Value now = Value::date(session.host.now());
        const std::wstring line = L"\n" + now.text() + L" " + text;
        // When a further line fails, the document stays as it was saved and the
        // next line opens another: a body that was removed and not written again,
        // or that has outgrown a Notes item, would lose every line.
        session.NewLogDocument = !isNew;
        (isNew ? writeFirstLine : appendLine)(document, session.LotusPersonalLog, now, line);
        saveDocument(document);
        session.NewLogDocument = false;
    });
}

}
