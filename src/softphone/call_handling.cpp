#include "softphone/call_handling.h"

#include "common/configuration.h"
#include "common/error_trap.h"
#include "lotus/calendars.h"
#include "lotus/contacts.h"
#include "lotus/open_books.h"
#include "lotus/phone_message.h"
#include "outlook/callback_mail.h"
#include "outlook/contact_lookup.h"
#include "outlook/contact_table.h"
#include "outlook/contacts.h"
#include "softphone/last_call.h"

namespace hublink {

namespace {

// A marker between these procedures; the softphone knows nothing of it.
constexpr const wchar_t* forwarded = L"TI_LINESTATECAUSE_FORWARD";

// Whom Outlook finds is the destination from then on.
void sendCallBackMail(OutlookSession& outlook, const Party& caller, Party& destination)
{
    const OutlookPerson known{destination.lastName, destination.firstName, L"", L""};
    const OutlookPerson found = FindOutlookContact(outlook, destination.number, known);
    destination.lastName = found.lastName;
    destination.firstName = found.firstName;
    if (!found.entryId.empty() && !found.email1Address.empty())
        SendOutlookMail(outlook, found.email1Address, MakeCallBackText(outlook, caller));
}

void showCaller(SoftphoneSession& session, const Party& caller)
{
    OutlookSession& outlook = session.outlook;
    if (outlook.bOutlookInit && !ShowOutlookContact(outlook, caller.number) &&
        session.host.configuration().bgSetNewContact)
        NewOutlookContact(outlook, caller, Show::yes);
    ShowOrCreateCaller(session.lotus, caller);
}

void rememberCaller(SoftphoneSession& session, const SoftphoneCall& call)
{
    const Party caller = SetLastCallInfo(session, session.gPhoneNumberCalled);
    session.gLastNameCalled = caller.lastName;
    session.gFirstNameCalled = caller.firstName;
    if (!caller.lastName.empty()) return;
    session.gLastNameCalled = call.lastName();
    session.gFirstNameCalled = call.firstName();
}

void rememberDestination(SoftphoneSession& session)
{
    const Party destination = SetLastCallInfo(session, session.gDestinationNumber);
    session.gDestinationLastName = destination.lastName;
    session.gDestinationFirstName = destination.firstName;
}

}

void LineObj_OnLineNewCall(SoftphoneSession& session, const SoftphoneCall& call)
{
    const TableAnswerCacheScope answers(session.outlook);
    const OpenBooksScope books(session.lotus);
    trapErrors([&] {
        const std::wstring number = call.number();
        session.gPhoneNumberCalled = number;
        if (!number.empty()) rememberCaller(session, call);
        session.gDestinationNumber.clear();
        if (!call.isIncoming() || number.empty()) return;

        session.gDestinationNumber = call.destinationNumber();
        if (!session.gDestinationNumber.empty()) rememberDestination(session);
        constexpr bool force = false;
        constexpr bool sendCallBackMessage = true;
        DoCallAction(session, force, sendCallBackMessage);
    });
}

void DoCallAction(SoftphoneSession& session, bool force, bool sendCallBackMessage)
{
    trapErrors([&] {
        const Party caller{session.gPhoneNumberCalled, session.gLastNameCalled, session.gFirstNameCalled};
        const bool isForwarded = !session.gDestinationNumber.empty() && sendCallBackMessage;
        const Party destination{isForwarded ? session.gDestinationNumber : L"", L"", L""};
        ProcessCallAction(session, caller, destination, isForwarded ? forwarded : L"", force);
    });
}

void DisplayGroupwareInfo(SoftphoneSession& session)
{
    ShowGroupCalendars(session.lotus, session.gDestinationNumber);
}

void ProcessCallAction(SoftphoneSession& session, const Party& caller, Party destination, const std::wstring& cause,
                       bool force)
{
    trapErrors([&] {
        const Configuration& configuration = session.host.configuration();
        if (cause == forwarded) {
            if (configuration.bgWithCallBackMail || force) {
                if (session.outlook.bOutlookInit) sendCallBackMail(session.outlook, caller, destination);
                SendPhoneMessage(session.lotus, caller, destination);
            }
            if (session.lotus.bPopUpGrpwAgenda) ShowGroupCalendars(session.lotus, destination.number);
        }
        if (configuration.bgWithPopUp || force) showCaller(session, caller);
    });
}

}
