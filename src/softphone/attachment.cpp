#include "common/error_trap.h"
#include "lotus/session.h"
#include "outlook/session.h"
#include "softphone/map_server.h"
#include "softphone/pavex_interface.h"
#include "softphone/softphone_members.h"

using automation::EventArguments;
using automation::EventHandlers;
using automation::Object;
using automation::Subscription;

PavexInterface::PavexInterface(Host& host, GroupwareState& groupware, OutlookSession& outlook, LotusSession& lotus)
    : host_(host), groupware_(groupware), outlook_(outlook), lotus_(lotus)
{
}

void PavexInterface::Class_Initialize()
{
    trapErrors([&] {
        InitPavex();
        InitConnector(true);
        host_.enableSupervision();
    });
}

void PavexInterface::InitPavex()
{
    using namespace softphone;
    trapErrors([&] {
        PavexObj = Object::create(progId);
        applicationEvents_ = Subscription(PavexObj, progId, applicationHandlers());
        PavexObj.put(application::attached, true);
        LineObj = PavexObj.get(application::line).object();
        lineEvents_ = Subscription(LineObj, progId, lineHandlers());
        UserObj = PavexObj.get(application::user).object();
        const std::wstring firstText = UserObj.get(user::firstText).text();
        groupware_.PavexUserName = firstText + L" " + UserObj.get(user::secondText).text();
        histo = PavexObj.get(application::history).object();
        historyEvents_ = Subscription(histo, progId, historyHandlers());
        adressbookPavex = PavexObj.get(application::addressBook).object();
        addressBookEvents_ = Subscription(adressbookPavex, progId, addressBookHandlers());
    });
}

// Events only queue their work here: it runs from the message loop, one event
// at a time, so that none is handled inside a call or another event.
EventHandlers PavexInterface::applicationHandlers()
{
    return {{L"OnQuit", [this](EventArguments) { host_.defer([this] { PavexObj_OnQuit(); }); }}};
}

EventHandlers PavexInterface::lineHandlers()
{
    return {{L"OnLineNewCall", [this](EventArguments arguments) {
                 const SoftphoneCall ccall(arguments.at(0).object().sharing(callNames_));
                 host_.defer([this, ccall] { LineObj_OnLineNewCall(ccall); });
             }}};
}

// A new record whose event had come when a synchronisation got its count is
// among the counted ones: it must not be mirrored a second time.
EventHandlers PavexInterface::historyHandlers()
{
    return {{L"OnHistoricNewItem",
             [this](EventArguments arguments) {
                 const SoftphoneHistoryItem item(arguments.at(0).object().sharing(historyItemNames_));
                 host_.defer([this, item, walks = historyWalks_] {
                     if (walks == historyWalks_) histo_OnHistoricNewItem(item);
                 });
             }},
            {L"OnHistoricDeleteItem",
             [this](EventArguments arguments) {
                 const std::int32_t high = arguments.at(0).int32();
                 const std::int32_t low = arguments.at(1).int32();
                 host_.defer([this, high, low] { histo_OnHistoricDeleteItem(high, low); });
             }}};
}

EventHandlers PavexInterface::addressBookHandlers()
{
    return {{L"OnRepertoryNewEntry",
             [this](EventArguments arguments) {
                 const SoftphoneEntry entry(arguments.at(0).object().sharing(entryNames_));
                 host_.defer([this, entry, walks = repertoryWalks_] {
                     if (walks == repertoryWalks_) adressbookPavex_OnRepertoryNewEntry(entry);
                 });
             }},
            {L"OnRepertoryDeleteEntry",
             [this](EventArguments arguments) {
                 const std::int32_t high = arguments.at(0).int32();
                 const std::int32_t low = arguments.at(1).int32();
                 host_.defer([this, high, low] { adressbookPavex_OnRepertoryDeleteEntry(high, low); });
             }}};
}

void PavexInterface::InitConnector(bool bfirst)
{
    trapErrors([&] {
        bInitConnector = true;
        openIdentifierMap();
        InitOutlook(outlook_);
        InitLotus(lotus_, bfirst);
        host_.WriteLog(L"Start Connector Initialization");
        PurgeId();
        if (host_.configuration().bgWithRepertory) InsertRepertory();
        if (host_.configuration().bgWithHisto) InitHisto();
        host_.WriteLog(host_.configuration().gStop ? L"Abort Connector Initialization"
                                                   : L"Connector Initialization  Ok");
        bInitConnector = false;
    });
}

// Without a map the program goes on, its synchronisations end at their first
// record. The old object is let go only when the new one is there: the server
// would end between the two and read its whole store again.
void PavexInterface::openIdentifierMap()
{
    Object fresh;
    trapErrors([&] { fresh = createIdentifierMap(host_); });
    hashID = fresh;
}

void PavexInterface::Kill()
{
    trapErrors([&] { host_.StopConnector(); });
}

void PavexInterface::PavexObj_OnQuit()
{
    Kill();
}
