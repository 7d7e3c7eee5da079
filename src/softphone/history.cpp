#include "softphone/history.h"

#include "common/configuration.h"
#include "common/error_trap.h"
#include "lotus/history.h"
#include "lotus/open_books.h"
#include "outlook/journal.h"
#include "softphone/identifier_map.h"
#include "softphone/softphone_members.h"

namespace hublink {

namespace {

using automation::Object;

void mirror(SoftphoneSession& session, const SoftphoneHistoryItem& item)
{
    const std::wstring id = textFromSoftphoneId(item.id());
    if (session.lotus.LotusReady && mappedId(session.hashID, id, MapApplication::lotus).empty()) {
        SetHistoItemLotus(session, item, id);
        session.host.pause(session.host.configuration().tempo);
    }
    if (session.outlook.bOutlookInit && mappedId(session.hashID, id, MapApplication::outlook).empty()) {
        SetHistoItemOutlook(session, item, session.host.configuration().bgSetNewContact, id);
        session.host.pause(session.host.configuration().tempo);
    }
}

// Walks the items from index 0 upward; the result is the final log line.
std::wstring walk(SoftphoneSession& session)
{
    const Object history = session.histo;
    const std::int32_t count = history.get(softphone::records::count).int32();
    ++session.historyWalkCount;
    for (std::int32_t index = 0; index < count; ++index) {
        session.host.checkForStopRequest();
        if (session.host.configuration().gStop) return L"Abort History Synchronisation";
        const Object item = history.get(softphone::records::atIndex, {index}).object();
        mirror(session, SoftphoneHistoryItem(item.usingIdCache(session.idCaches.historyItem)));
        session.host.pause(session.host.configuration().tempo1);
    }
    return L"History Synchronisation Ok";
}

}

void InitHisto(SoftphoneSession& session)
{
    if (!session.lotus.LotusReady && !session.outlook.bOutlookInit) return;
    const OpenBooksScope books(session.lotus);
    session.host.WriteLog(L"start History Synchronisation ");
    trapErrors([&] { session.host.WriteLog(walk(session)); },
               [&] { session.host.WriteLog(L"Pb in History Synchronisation"); });
}

void histo_OnHistoricNewItem(SoftphoneSession& session, const SoftphoneHistoryItem& item)
{
    trapErrors([&] {
        if (!session.host.configuration().bgWithHisto) return;
        constexpr bool newContact = false;
        if (session.outlook.bOutlookInit) SetHistoItemOutlook(session, item, newContact);
        SetHistoItemLotus(session, item);
    });
}

void SetHistoItemOutlook(SoftphoneSession& session, const SoftphoneHistoryItem& item, bool newContact,
                         const std::wstring& id)
{
    trapErrors([&] {
        const std::wstring entryId = CreateOutlookHistoItem(session.outlook, item, newContact);
        if (entryId.empty()) return;
        insertId(session.hashID, entryId, id.empty() ? textFromSoftphoneId(item.id()) : id, MapApplication::outlook,
                 MapCollection::history);
    });
}

void SetHistoItemLotus(SoftphoneSession& session, const SoftphoneHistoryItem& item, const std::wstring& id)
{
    trapErrors([&] {
        const std::wstring noteId = CreateHistoryDocument(session.lotus, item);
        if (noteId.empty()) return;
        insertId(session.hashID, noteId, id.empty() ? textFromSoftphoneId(item.id()) : id, MapApplication::lotus,
                 MapCollection::history);
    });
}

}
