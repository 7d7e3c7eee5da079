#include "common/error_trap.h"
#include "lotus/history.h"
#include "lotus/open_books.h"
#include "outlook/journal.h"
#include "softphone/pavex_interface.h"
#include "softphone/softphone_members.h"

using automation::Object;

void PavexInterface::SetHistoItemOutlook(const SoftphoneHistoryItem& histoObj, bool bnewContact, const std::wstring& id)
{
    trapErrors([&] {
        const std::wstring entryId = CreateOutlookHistoItem(outlook_, histoObj, bnewContact);
        if (entryId.empty()) return;
        insertId(hashID, entryId, id.empty() ? textFromSoftphoneId(histoObj.id()) : id, MapApplication::outlook,
                 MapCollection::history);
    });
}

void PavexInterface::SetHistoItemLotus(const SoftphoneHistoryItem& histoObj, const std::wstring& id)
{
    trapErrors([&] {
        const std::wstring noteId = CreateHistoryDocument(lotus_, histoObj);
        if (noteId.empty()) return;
        insertId(hashID, noteId, id.empty() ? textFromSoftphoneId(histoObj.id()) : id, MapApplication::lotus,
                 MapCollection::history);
    });
}

void PavexInterface::histo_OnHistoricNewItem(const SoftphoneHistoryItem& item)
{
    trapErrors([&] {
        if (!host_.configuration().bgWithHisto) return;
        if (outlook_.bOutlookInit) SetHistoItemOutlook(item, false);
        if (lotus_.LotusReady) SetHistoItemLotus(item);
    });
}

void PavexInterface::InitHisto()
{
    if (!lotus_.LotusReady && !outlook_.bOutlookInit) return;
    const BooksKeptOpen books(lotus_);
    host_.WriteLog(L"start History Synchronisation ");
    trapErrors([&] { host_.WriteLog(walkHistory()); }, [&] { host_.WriteLog(L"Pb in History Synchronisation"); });
}

// Walks the items from index 0 upward; the result is the final log line.
std::wstring PavexInterface::walkHistory()
{
    const Object history = histo;
    const std::int32_t count = history.get(softphone::records::count).int32();
    ++historyWalks_;
    for (std::int32_t index = 0; index < count; ++index) {
        host_.letUserStop();
        if (host_.configuration().gStop) return L"Abort History Synchronisation";
        const Object item = history.get(softphone::records::atIndex, {index}).object();
        mirrorHistoryItem(SoftphoneHistoryItem(item.sharing(historyItemNames_)));
        host_.pause(host_.configuration().tempo1);
    }
    return L"History Synchronisation Ok";
}

void PavexInterface::mirrorHistoryItem(const SoftphoneHistoryItem& item)
{
    const std::wstring id = textFromSoftphoneId(item.id());
    if (lotus_.LotusReady && mappedId(hashID, id, MapApplication::lotus).empty()) {
        SetHistoItemLotus(item, id);
        host_.pause(host_.configuration().tempo);
    }
    if (outlook_.bOutlookInit && mappedId(hashID, id, MapApplication::outlook).empty()) {
        SetHistoItemOutlook(item, host_.configuration().bgSetNewContact, id);
        host_.pause(host_.configuration().tempo);
    }
}
