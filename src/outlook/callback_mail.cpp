#include "outlook/callback_mail.h"

#include "common/error_trap.h"
#include "common/text.h"

std::wstring FillTemplate(const std::wstring& szTemplate, const std::wstring& phoneNumber,
                          const std::wstring& lastName, const std::wstring& firstName)
{
    std::wstring text = replaceAll(szTemplate, L"<LastName>", lastName);
    text = replaceAll(std::move(text), L"<PhoneNumber>", phoneNumber);
    return replaceAll(std::move(text), L"<FirstName>", firstName);
}

std::wstring MakeCallBackText(const OutlookSession& session, const std::wstring& phoneNumber,
                              const std::wstring& lastName, const std::wstring& firstName)
{
    return FillTemplate(session.szCallBackMailSyntaxe, phoneNumber, lastName, firstName);
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
