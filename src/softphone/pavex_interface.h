// The softphone link: attaches to the running softphone, turns its events into work
// for the message loop, and initialises the connector. The shell makes one instance.
// No error leaves a public procedure.
#pragma once

#include "automation/subscription.h"
#include "lotus/initialisation.h"
#include "softphone/address_book.h"
#include "softphone/call_handling.h"
#include "softphone/history.h"
#include "softphone/map_purge.h"
#include "softphone/softphone_session.h"

#include <cstdint>
#include <string>

namespace hublink {

class PavexInterface {
public:
    explicit PavexInterface(SoftphoneSession& session) : session_(session) {}
    PavexInterface(const PavexInterface&) = delete;
    PavexInterface& operator=(const PavexInterface&) = delete;

    // Attaches, initialises for the first time, then starts the supervision.
    void Class_Initialize();

    // Attaches to the softphone. What could not be reached stays empty, and
    // every later use of it fails quietly.
    void InitPavex();

    // Opens the identifier map and the groupware sessions, drops the map records
    // whose softphone record has gone, and synchronises what is switched on.
    void InitConnector(NewLog newLog);

    // Stops the connector.
    void Kill();

    // The events. A deleted record stays in the map until the next purge, on purpose.
    void PavexObj_OnQuit() { Kill(); }
    void LineObj_OnLineNewCall(const SoftphoneCall& call) { hublink::LineObj_OnLineNewCall(session_, call); }
    void histo_OnHistoricNewItem(const SoftphoneHistoryItem& item) { hublink::histo_OnHistoricNewItem(session_, item); }
    void histo_OnHistoricDeleteItem(std::int32_t, std::int32_t) {}
    void adressbookPavex_OnRepertoryNewEntry(const SoftphoneEntry& entry)
    {
        hublink::adressbookPavex_OnRepertoryNewEntry(session_, entry);
    }
    void adressbookPavex_OnRepertoryDeleteEntry(std::int32_t, std::int32_t) {}

    // What the link offers at any time. The headers above say what each does.
    void DoCallAction(bool force, bool sendCallBackMessage)
    {
        hublink::DoCallAction(session_, force, sendCallBackMessage);
    }
    void DisplayGroupwareInfo() { hublink::DisplayGroupwareInfo(session_); }
    void PurgeId() { hublink::PurgeId(session_); }
    void PurgeIdRepertory() { hublink::PurgeIdRepertory(session_); }
    void PurgeIdHistorique() { hublink::PurgeIdHistorique(session_); }
    bool InPavexRepertory(const std::wstring& id) const { return hublink::InPavexRepertory(session_, id); }
    bool InPavexHistorique(const std::wstring& id) const { return hublink::InPavexHistorique(session_, id); }
    void InsertRepertory() { hublink::InsertRepertory(session_); }
    void CreateOutlookContactFromPavex(const SoftphoneEntry& entry)
    {
        hublink::CreateOutlookContactFromPavex(session_, entry);
    }
    void CreateLotusContactFromPavex(const SoftphoneEntry& entry)
    {
        hublink::CreateLotusContactFromPavex(session_, entry);
    }
    void InitHisto() { hublink::InitHisto(session_); }
    void SetHistoItemOutlook(const SoftphoneHistoryItem& item, bool newContact)
    {
        hublink::SetHistoItemOutlook(session_, item, newContact);
    }
    void SetHistoItemLotus(const SoftphoneHistoryItem& item) { hublink::SetHistoItemLotus(session_, item); }

private:
    automation::EventHandlers applicationHandlers();
    automation::EventHandlers lineHandlers();
    automation::EventHandlers historyHandlers();
    automation::EventHandlers addressBookHandlers();

    SoftphoneSession& session_;
    automation::Subscription applicationEvents_;
    automation::Subscription lineEvents_;
    automation::Subscription historyEvents_;
    automation::Subscription addressBookEvents_;
};

}
