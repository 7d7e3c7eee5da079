#include "softphone/call_handling.h"

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

namespace {

// A marker between these procedures; the softphone knows nothing of it.
constexpr const wchar_t* forwarded = L"TI_LINESTATECAUSE_FORWARD";

}

void LineObj_OnLineNewCall(SoftphoneSession& session, const SoftphoneCall& call)
{
    const AnswersOfOneEvent answers(session.outlook);
    const BooksKeptOpen books(session.lotus);
    trapErrors([&] {
        const std::wstring number = call.number();
        session.gPhoneNumberCalled = number;
        if (!number.empty()) {
            SetLastCallInfo(session.outlook, session.lotus, session.gPhoneNumberCalled, session.gLastNameCalled,
                            session.gFirstNameCalled);
            if (session.gLastNameCalled.empty()) {
                session.gLastNameCalled = call.lastName();
                session.gFirstNameCalled = call.firstName();
            }
        }
        session.gDestinationNumber.clear();
        if (!call.isIncoming() || number.empty()) return;

        session.gDestinationNumber = call.destinationNumber();
        if (!session.gDestinationNumber.empty())
            SetLastCallInfo(session.outlook, session.lotus, session.gDestinationNumber, session.gDestinationLastName,
                            session.gDestinationFirstName);
        DoCallAction(session, false, true);
    });
}

void DoCallAction(SoftphoneSession& session, bool force, bool sendCallBackMessage)
{
    trapErrors([&] {
        const bool isForwarded = !session.gDestinationNumber.empty() && sendCallBackMessage;
        ProcessCallAction(session, session.gPhoneNumberCalled, session.gLastNameCalled, session.gFirstNameCalled,
                          isForwarded ? session.gDestinationNumber : L"", L"", L"", isForwarded ? forwarded : L"",
                          force);
    });
}

void DisplayGroupwareInfo(SoftphoneSession& session)
{
    ShowGroupCalendars(session.lotus, session.gDestinationNumber);
}

void ProcessCallAction(SoftphoneSession& session, std::wstring PhoneNumber, std::wstring LastName,
                       std::wstring FirstName, std::wstring DestNumber, std::wstring DestLastName,
                       std::wstring DestFirstName, const std::wstring& Cause, bool force)
{
    OutlookSession& outlook = session.outlook;
    LotusSession& lotus = session.lotus;
    const auto sendCallBackMail = [&] {
        std::wstring mail;
        const std::wstring entryId = FindOutlookContact(outlook, DestNumber, DestLastName, DestFirstName, mail);
        if (!entryId.empty() && !mail.empty())
            SendOutlookMail(outlook, mail, MakeCallBackText(outlook, PhoneNumber, LastName, FirstName));
    };
    trapErrors([&] {
        const Configuration& configuration = session.host.configuration();
        if (Cause == forwarded) {
            if (configuration.bgWithCallBackMail || force) {
                if (outlook.bOutlookInit) sendCallBackMail();
                SendPhoneMessage(lotus, PhoneNumber, FirstName, LastName, DestNumber, DestLastName, DestFirstName);
            }
            if (lotus.bPopUpGrpwAgenda) ShowGroupCalendars(lotus, DestNumber);
        }
        if (configuration.bgWithPopUp || force) {
            if (outlook.bOutlookInit && !ShowOutlookContact(outlook, PhoneNumber) && configuration.bgSetNewContact)
                NewOutlookContact(outlook, PhoneNumber, LastName, FirstName, true);
            ShowOrCreateCaller(lotus, PhoneNumber, LastName, FirstName);
        }
    });
}
