#include "softphone/last_call.h"

#include "common/error_trap.h"
#include "lotus/last_call.h"
#include "outlook/contact_lookup.h"

namespace hublink {

Party SetLastCallInfo(SoftphoneSession& session, const std::wstring& number)
{
    Party party{number, L"", L""};
    trapErrors([&] {
        if (session.outlook.bOutlookInit) {
            const OutlookPerson contact = FindOutlookContact(session.outlook, number);
            party.lastName = contact.lastName;
            party.firstName = contact.firstName;
        }
        publishLastCall(session.lotus, party);
    });
    return party;
}

}
