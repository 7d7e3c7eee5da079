#include "softphone/last_call.h"

#include "common/error_trap.h"
#include "lotus/last_call.h"
#include "outlook/contact_lookup.h"

void SetLastCallInfo(OutlookSession& outlook, LotusSession& lotus, const std::wstring& Number, std::wstring& LastName,
                     std::wstring& FirstName)
{
    trapErrors([&] {
        LastName.clear();
        FirstName.clear();
        std::wstring mail;
        if (outlook.bOutlookInit) FindOutlookContact(outlook, Number, LastName, FirstName, mail);
        publishLastCall(lotus, Number, LastName, FirstName);
    });
}
