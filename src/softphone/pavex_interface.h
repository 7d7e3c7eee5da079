// The softphone link: attaches to the running softphone, receives its events,
// keeps the identifier map in step and carries out what a call asks for in the
// groupware. The shell makes one instance. No error leaves a public procedure.
//
// The class's procedures stand in a file per subject: attachment.cpp,
// identifier_map.cpp, call_handling.cpp, address_book.cpp, history.cpp.
#pragma once

#include "automation/event_sink.h"
#include "common/groupware_state.h"
#include "common/host.h"
#include "common/softphone_records.h"
#include "lotus/lotus_session.h"
#include "outlook/outlook_session.h"
#include "softphone/identifier_map.h"

#include <cstdint>
#include <string>

class PavexInterface {
public:
    PavexInterface(Host& host, GroupwareState& groupware, OutlookSession& outlook, LotusSession& lotus);

    // Attaches, initialises for the first time, then starts the supervision.
    void Class_Initialize();

    // Attaches to the softphone. What could not be reached stays empty, and
    // every later use of it fails quietly.
    void InitPavex();

    // Opens the identifier map and the groupware sessions, drops the map records
    // whose softphone record has gone, and synchronises what is switched on.
    // `bfirst` asks Notes for a new log document.
    void InitConnector(bool bfirst);

    // Stops the connector.
    void Kill();

    void PavexObj_OnQuit();

    // A new call on the line: who calls, and what to show or prepare for it.
    void LineObj_OnLineNewCall(const SoftphoneCall& ccall);

    // Runs the actions for the last call; `force` even those switched off,
    // `sendcallbakmsg` the callback message too.
    void DoCallAction(bool force, bool sendcallbakmsg);

    // Shows the group calendars of the person to whom the last call was forwarded.
    void DisplayGroupwareInfo();

    // Drops the map records whose softphone record has gone; none while the
    // softphone's list does not answer.
    void PurgeId();
    void PurgeIdRepertory();
    void PurgeIdHistorique();

    // Whether the softphone still has the entry, or the history item, of an
    // identifier text. False too when that cannot be found out.
    bool InPavexRepertory(const std::wstring& Id);
    bool InPavexHistorique(const std::wstring& Id);

    // A deleted record stays in the map until the next purge, on purpose.
    void adressbookPavex_OnRepertoryDeleteEntry(std::int32_t IdHigh, std::int32_t IdLow);
    void histo_OnHistoricDeleteItem(std::int32_t IdHigh, std::int32_t IdLow);

    // Mirrors the softphone's address book: every entry that is not mapped yet
    // is mapped to the contact with its number, or becomes a new contact; in
    // each groupware for itself.
    void InsertRepertory();
    void adressbookPavex_OnRepertoryNewEntry(const SoftphoneEntry& eltEntry);
    void CreateOutlookContactFromPavex(const SoftphoneEntry& Obj);
    void CreateLotusContactFromPavex(const SoftphoneEntry& Obj);

    // Mirrors the softphone's call history: every item that is not mapped yet
    // becomes a journal item, a history document. `bnewContact` lets a journal
    // item's creation make a contact for an unknown party. `id` is the item's
    // identifier where it is known already.
    void InitHisto();
    void histo_OnHistoricNewItem(const SoftphoneHistoryItem& item);
    void SetHistoItemOutlook(const SoftphoneHistoryItem& histoObj, bool bnewContact, const std::wstring& id = L"");
    void SetHistoItemLotus(const SoftphoneHistoryItem& histoObj, const std::wstring& id = L"");

    automation::Object UserObj;
    bool bInitConnector = false;          // InitConnector is running
    std::wstring gPhoneNumberCalled;      // other party of the last new call
    std::wstring gLastNameCalled;
    std::wstring gFirstNameCalled;
    std::wstring gDestinationLastName;    // to whom an incoming call was forwarded
    std::wstring gDestinationFirstName;
    std::wstring gDestinationNumber;
    automation::Object hashID;            // the identifier-map server
    automation::Object PavexObj;
    automation::Object LineObj;
    automation::Object histo;
    automation::Object adressbookPavex;

private:
    automation::EventHandlers applicationHandlers();
    automation::EventHandlers lineHandlers();
    automation::EventHandlers historyHandlers();
    automation::EventHandlers addressBookHandlers();
    void openIdentifierMap();
    std::wstring walkRepertory();
    void mirrorEntry(const SoftphoneEntry& entry, int& created);
    void mirrorEntryInLotus(const SoftphoneEntry& entry, const std::wstring& id, const std::wstring& number,
                            int& created);
    void mirrorEntryInOutlook(const SoftphoneEntry& entry, const std::wstring& id, const std::wstring& number,
                              int& created);
    void logNewContact(int created, const wchar_t* where, const std::wstring& number, const SoftphoneEntry& entry);
    std::wstring walkHistory();
    void mirrorHistoryItem(const SoftphoneHistoryItem& item);
    void purge(MapCollection collection, automation::Object softphoneRecords);

    Host& host_;
    GroupwareState& groupware_;
    OutlookSession& outlook_;
    LotusSession& lotus_;
    // The softphone's records are of one class each: members are looked up once.
    const automation::SharedNames callNames_ = automation::sharedNames();
    const automation::SharedNames entryNames_ = automation::sharedNames();
    const automation::SharedNames historyItemNames_ = automation::sharedNames();
    int repertoryWalks_ = 0; // counts taken by the synchronisations so far
    int historyWalks_ = 0;
    automation::Subscription applicationEvents_;
    automation::Subscription lineEvents_;
    automation::Subscription historyEvents_;
    automation::Subscription addressBookEvents_;
};

// Carries out what is switched on (with `force`: everything) for a call: the
// callback message to the one it was forwarded to and that one's calendars,
// then the caller's contact.
void ProcessCallAction(Host& host, OutlookSession& outlook, LotusSession& lotus, std::wstring PhoneNumber,
                       std::wstring LastName, std::wstring FirstName, std::wstring DestNumber,
                       std::wstring DestLastName, std::wstring DestFirstName, const std::wstring& Cause, bool force);
