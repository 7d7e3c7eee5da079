#include "common/error_trap.h"
#include "outlook/journal.h"
#include "softphone/identifier_map.h"
#include "softphone/pavex_interface.h"
#include "softphone/softphone_members.h"

using automation::Object;

void PavexInterface::SetHistoItemOutlook(const Object& histoObj, bool bnewContact)
{
    trapErrors(L"SetHistoItemOutlook", [&] {
        const std::wstring entryId = CreateOutlookHistoItem(outlook_, histoObj, bnewContact);
        if (entryId.empty()) return;
        insertId(hashID, entryId, historyIdOf(histoObj), MapApplication::outlook, MapCollection::history);
    });
}

void PavexInterface::histo_OnHistoricNewItem(const Object& item)
{
    trapErrors(L"histo_OnHistoricNewItem", [&] {
        if (!host_.configuration().bgWithHisto) return;
        if (outlook_.bOutlookInit) SetHistoItemOutlook(item, false);
    });
}

void PavexInterface::InitHisto()
{
    if (!outlook_.bOutlookInit) return;
    host_.WriteLog(L"start History Synchronisation ");
    trapErrors(L"InitHisto", [&] { host_.WriteLog(walkHistory()); },
               [&] { host_.WriteLog(L"Pb in History Synchronisation"); });
}

// Walks the items from index 0 upward; the result is the final log line.
std::wstring PavexInterface::walkHistory()
{
    const Object history = histo;
    ++historyWalks_;
    const std::int32_t count = history.get(softphone::records::count).int32();
    for (std::int32_t index = 0; index < count; ++index) {
        if (host_.configuration().gStop) return L"Abort History Synchronisation";
        const Object item = history.get(softphone::records::atIndex, {index}).object();
        mirrorHistoryItem(item.sharing(historyItemNames_));
        host_.pause(host_.configuration().tempo1);
    }
    return L"History Synchronisation Ok";
}

void PavexInterface::mirrorHistoryItem(const Object& item)
{
    const std::wstring id = historyIdOf(item);
    if (!outlook_.bOutlookInit || !mappedId(hashID, id, MapApplication::outlook).empty()) return;
    SetHistoItemOutlook(item, host_.configuration().bgSetNewContact);
    host_.pause(host_.configuration().tempo);
}
