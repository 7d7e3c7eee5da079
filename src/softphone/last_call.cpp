#include "softphone/last_call.h"

#include "common/error_trap.h"
#include "outlook/contact_lookup.h"

void SetLastCallInfo(OutlookSession& outlook, const std::wstring& Number, std::wstring& LastName,
                     std::wstring& FirstName)
{
    trapErrors(L"SetLastCallInfo", [&] {
        LastName.clear();
        FirstName.clear();
        std::wstring mail;
        if (outlook.bOutlookInit) FindOutlookContact(outlook, Number, LastName, FirstName, mail);
    });
}
