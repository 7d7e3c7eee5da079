#include "outlook/log_item.h"

#include "automation/conversion.h"
#include "common/error_trap.h"

namespace hublink {

void LogToOutlookJournal(OutlookSession& session, const std::wstring& text)
{
    trapErrors([&] {
        const automation::Value now = automation::Value::date(session.host.now());
        const std::wstring line = now.text() + L" " + text;
        const bool isFirst = !session.OutlookLogItem;
        if (isFirst) session.OutlookLogItem = newOutlookItem(session, OutlookItemType::journal);
        const automation::Object item = session.OutlookLogItem;
        if (isFirst) {
            item.put(L"Subject", L"Connector Log");
            item.put(L"Start", now);
        }
        item.put(L"End", now);
        if (isFirst) item.put(L"Type", L"Pavex Connector");
        item.put(L"Body", isFirst ? line : item.get(L"Body").text() + L"\n" + line);
        saveAndClose(item);
    });
}

}
