#include "outlook/callback_mail.h"

#include "common/error_trap.h"
#include "common/text.h"

namespace hublink {

std::wstring FillTemplate(const std::wstring& text, const Party& caller)
{
    std::wstring filled = replaceAll(text, L"<LastName>", caller.lastName);
    filled = replaceAll(std::move(filled), L"<PhoneNumber>", caller.number);
    return replaceAll(std::move(filled), L"<FirstName>", caller.firstName);
}

std::wstring MakeCallBackText(const OutlookSession& session, const Party& caller)
{
    return FillTemplate(session.szCallBackMailSyntaxe, caller);
}

bool SendOutlookMail(OutlookSession& session, const std::wstring& to, const std::wstring& subject)
{
    bool displayed = false;
    trapErrors([&] {
        const automation::Object mail = newOutlookItem(session, OutlookItemType::mail);
        mail.put(L"Subject", subject);
        mail.put(L"Body", L"");
        mail.put(L"To", to);
        mail.call(L"Display");
        displayed = true;
    });
    return displayed;
}

}
