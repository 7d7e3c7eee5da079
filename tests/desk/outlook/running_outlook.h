// The real program of the simulated Outlook, and a client's first steps with it.
#pragma once

#include "automation/object.h"
#include "support/running_partner.h"

class RunningOutlook : public support::RunningPartner {
public:
    explicit RunningOutlook(std::string_view store = {})
        : RunningPartner({L"OUTLOOK.exe", L"outlook", L"Outlook.Application"}, store)
    {}
};

inline automation::Object outlookObject()
{
    return automation::Object::create(L"Outlook.Application");
}

inline automation::Object contactsOf(const automation::Object& application)
{
    return application.get(L"GetNamespace", {L"MAPI"}).object().get(L"GetDefaultFolder", {std::int32_t{10}}).object();
}

inline automation::Object newContact(const automation::Object& application, const wchar_t* name)
{
    const automation::Object contact = application.get(L"CreateItem", {std::int16_t{2}}).object();
    contact.put(L"FullName", name);
    return contact;
}
