#include "softphone/pavex_interface.h"

#include "common/configuration.h"
#include "common/error_trap.h"
#include "common/scoped_flag.h"
#include "outlook/initialisation.h"
#include "softphone/identifier_map.h"
#include "softphone/softphone_members.h"

namespace hublink {

using automation::EventArguments;
using automation::EventHandlers;
using automation::Object;
using automation::Subscription;

void PavexInterface::Class_Initialize()
{
    trapErrors([&] {
        InitPavex();
        InitConnector(NewLog::yes);
        session_.host.enableSupervision();
    });
}

void PavexInterface::InitPavex()
{
    using namespace softphone;
    trapErrors([&] {
        SoftphoneSession& session = session_;
        session.PavexObj = Object::create(progId);
        applicationEvents_ = Subscription(session.PavexObj, progId, applicationHandlers());
        session.PavexObj.put(application::attached, true);
        session.LineObj = session.PavexObj.get(application::line).object();
        lineEvents_ = Subscription(session.LineObj, progId, lineHandlers());
        session.UserObj = session.PavexObj.get(application::user).object();
        // Two statements, for "+" promises no order of its calls.
        const std::wstring firstText = session.UserObj.get(user::firstText).text();
        session.groupware.PavexUserName = firstText + L" " + session.UserObj.get(user::secondText).text();
        session.histo = session.PavexObj.get(application::history).object();
        historyEvents_ = Subscription(session.histo, progId, historyHandlers());
        session.adressbookPavex = session.PavexObj.get(application::addressBook).object();
        addressBookEvents_ = Subscription(session.adressbookPavex, progId, addressBookHandlers());
    });
}

// Events only queue their work here: it runs from the message loop, one event
// at a time, so that none is handled inside a call or another event.
EventHandlers PavexInterface::applicationHandlers()
{
    return {{L"OnQuit", [this](EventArguments) { session_.host.defer([this] { PavexObj_OnQuit(); }); }}};
}

EventHandlers PavexInterface::lineHandlers()
{
    return {{L"OnLineNewCall", [this](EventArguments arguments) {
                 const SoftphoneCall call(arguments.at(0).object().usingIdCache(session_.idCaches.call));
                 session_.host.defer([this, call] { LineObj_OnLineNewCall(call); });
             }}};
}

// A new record whose event had come when a synchronisation got its count is
// among the counted ones: it must not be mirrored a second time.
EventHandlers PavexInterface::historyHandlers()
{
    return {{L"OnHistoricNewItem",
             [this](EventArguments arguments) {
                 const SoftphoneHistoryItem item(arguments.at(0).object().usingIdCache(session_.idCaches.historyItem));
                 session_.host.defer([this, item, walks = session_.historyWalkCount] {
                     if (walks == session_.historyWalkCount) histo_OnHistoricNewItem(item);
                 });
             }},
            {L"OnHistoricDeleteItem", [this](EventArguments arguments) {
                 const std::int32_t high = arguments.at(0).int32();
                 const std::int32_t low = arguments.at(1).int32();
                 session_.host.defer([this, high, low] { histo_OnHistoricDeleteItem(high, low); });
             }}};
}

EventHandlers PavexInterface::addressBookHandlers()
{
    return {{L"OnRepertoryNewEntry",
             [this](EventArguments arguments) {
                 const SoftphoneEntry entry(arguments.at(0).object().usingIdCache(session_.idCaches.entry));
                 session_.host.defer([this, entry, walks = session_.repertoryWalkCount] {
                     if (walks == session_.repertoryWalkCount) adressbookPavex_OnRepertoryNewEntry(entry);
                 });
             }},
            {L"OnRepertoryDeleteEntry", [this](EventArguments arguments) {
                 const std::int32_t high = arguments.at(0).int32();
                 const std::int32_t low = arguments.at(1).int32();
                 session_.host.defer([this, high, low] { adressbookPavex_OnRepertoryDeleteEntry(high, low); });
             }}};
}

void PavexInterface::InitConnector(NewLog newLog)
{
    trapErrors([&] {
        const ScopedFlag initialisation(session_.bInitConnector);
        openIdentifierMap(session_);
        InitOutlook(session_.outlook);
        InitLotus(session_.lotus, newLog);
        session_.host.WriteLog(L"Start Connector Initialization");
        PurgeId();
        if (session_.host.configuration().bgWithRepertory) InsertRepertory();
        if (session_.host.configuration().bgWithHisto) InitHisto();
        session_.host.WriteLog(session_.host.configuration().gStop ? L"Abort Connector Initialization"
                                                                   : L"Connector Initialization  Ok");
    });
}

void PavexInterface::Kill()
{
    trapErrors([&] { session_.host.StopConnector(); });
}

}
