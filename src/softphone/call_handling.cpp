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
#include "softphone/pavex_interface.h"

namespace {

// A marker between these procedures; the softphone knows nothing of it.
constexpr const wchar_t* forwarded = L"TI_LINESTATECAUSE_FORWARD";

}

void PavexInterface::LineObj_OnLineNewCall(const SoftphoneCall& ccall)
{
    const AnswersOfOneEvent answers(outlook_);
    const BooksKeptOpen books(lotus_);
    trapErrors([&] {
        const std::wstring number = ccall.number();
        gPhoneNumberCalled = number;
        if (!number.empty()) {
            SetLastCallInfo(outlook_, lotus_, gPhoneNumberCalled, gLastNameCalled, gFirstNameCalled);
            if (gLastNameCalled.empty()) {
                gLastNameCalled = ccall.lastName();
                gFirstNameCalled = ccall.firstName();
            }
        }
        gDestinationNumber.clear();
        if (!ccall.isIncoming() || number.empty()) return;

        gDestinationNumber = ccall.destinationNumber();
        if (!gDestinationNumber.empty())
            SetLastCallInfo(outlook_, lotus_, gDestinationNumber, gDestinationLastName, gDestinationFirstName);
        DoCallAction(false, true);
    });
}

void PavexInterface::DoCallAction(bool force, bool sendcallbakmsg)
{
    trapErrors([&] {
        const bool isForwarded = !gDestinationNumber.empty() && sendcallbakmsg;
        ProcessCallAction(host_, outlook_, lotus_, gPhoneNumberCalled, gLastNameCalled, gFirstNameCalled,
                          isForwarded ? gDestinationNumber : L"", L"", L"", isForwarded ? forwarded : L"", force);
    });
}

void PavexInterface::DisplayGroupwareInfo()
{
    if (lotus_.LotusReady) ShowGroupCalendars(lotus_, gDestinationNumber);
}

void ProcessCallAction(Host& host, OutlookSession& outlook, LotusSession& lotus, std::wstring PhoneNumber,
                       std::wstring LastName, std::wstring FirstName, std::wstring DestNumber,
                       std::wstring DestLastName, std::wstring DestFirstName, const std::wstring& Cause, bool force)
{
    const auto sendCallBackMail = [&] {
        std::wstring mail;
        const std::wstring entryId = FindOutlookContact(outlook, DestNumber, DestLastName, DestFirstName, mail);
        if (!entryId.empty() && !mail.empty())
            SendOutlookMail(outlook, mail, MakeCallBackText(outlook, PhoneNumber, LastName, FirstName));
    };
    trapErrors([&] {
        const Configuration& configuration = host.configuration();
        if (Cause == forwarded) {
            if (configuration.bgWithCallBackMail || force) {
                if (outlook.bOutlookInit) sendCallBackMail();
                if (lotus.LotusReady)
                    SendPhoneMessage(lotus, PhoneNumber, FirstName, LastName, DestNumber, DestLastName, DestFirstName);
            }
            if (lotus.bPopUpGrpwAgenda && lotus.LotusReady) ShowGroupCalendars(lotus, DestNumber);
        }
        if (configuration.bgWithPopUp || force) {
            if (outlook.bOutlookInit && !ShowOutlookContact(outlook, PhoneNumber) && configuration.bgSetNewContact)
                NewOutlookContact(outlook, PhoneNumber, LastName, FirstName, true);
            if (lotus.LotusReady) ShowOrCreateCaller(lotus, PhoneNumber, LastName, FirstName);
        }
    });
}
