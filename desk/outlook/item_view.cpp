#include "desk/outlook/item_view.h"

#include "automation/conversion.h"

#include <span>

namespace desk::outlook {

namespace {

struct Row {
    const wchar_t* label;
    const wchar_t* field;
    bool always; // shown even when there is nothing in it
};

constexpr Row contactRows[] = {{L"Full name", L"FullName", true},
                               {L"Job title", L"JobTitle", false},
                               {L"Company", L"CompanyName", true},
                               {L"File as", L"FileAs", true},
                               {L"E-mail", L"Email1Address", true},
                               {L"Business", L"BusinessTelephoneNumber", true},
                               {L"Home", L"HomeTelephoneNumber", true},
                               {L"Mobile", L"MobileTelephoneNumber", true},
                               {L"Business fax", L"BusinessFaxNumber", true},
                               {L"Assistant", L"AssistantTelephoneNumber", false},
                               {L"Business 2", L"Business2TelephoneNumber", false},
                               {L"Callback", L"CallbackTelephoneNumber", false},
                               {L"Car", L"CarTelephoneNumber", false},
                               {L"Company main", L"CompanyMainTelephoneNumber", false},
                               {L"Home 2", L"Home2TelephoneNumber", false},
                               {L"Home fax", L"HomeFaxNumber", false},
                               {L"ISDN", L"ISDNNumber", false},
                               {L"Other", L"OtherTelephoneNumber", false},
                               {L"Other fax", L"OtherFaxNumber", false},
                               {L"Pager", L"PagerNumber", false},
                               {L"Primary", L"PrimaryTelephoneNumber", false},
                               {L"Radio", L"RadioTelephoneNumber", false},
                               {L"Telex", L"TelexNumber", false},
                               {L"Notes", L"Body", true}};

constexpr Row journalRows[] = {{L"Subject", L"Subject", true},       {L"Entry type", L"Type", true},
                               {L"Company", L"Companies", true},     {L"Start time", L"Start", true},
                               {L"End time", L"End", true},          {L"Duration", L"Duration", true},
                               {L"Contacts", L"ContactNames", true}, {L"Notes", L"Body", true}};

constexpr Row mailRows[] = {{L"To", L"To", true},
                            {L"Cc", L"CC", true},
                            {L"Bcc", L"BCC", false},
                            {L"Subject", L"Subject", true},
                            {L"Message", L"Body", true}};

constexpr Row listRows[] = {{L"Name", L"DLName", true}, {L"Notes", L"Body", true}};

std::span<const Row> rowsOf(ItemClass itemClass)
{
    switch (itemClass) {
    case ItemClass::contact: return contactRows;
    case ItemClass::distributionList: return listRows;
    case ItemClass::journal: return journalRows;
    case ItemClass::mail: break;
    }
    return mailRows;
}

std::wstring titleOf(const Item& item)
{
    const std::wstring name = nameOf(item);
    const std::wstring shown = name.empty() ? L"Untitled" : name;
    switch (item.itemClass) {
    case ItemClass::contact: return shown + L" - Contact";
    case ItemClass::distributionList: return shown + L" - Contact Group";
    case ItemClass::journal: return shown + L" - Journal Entry";
    case ItemClass::mail: break;
    }
    return shown + L" - Message";
}

std::wstring shownText(const Item& item, const Field& field)
{
    const automation::Value value = valueOf(item, field);
    if (field.type == FieldType::date && value.asDate() == noDate) return L"None";
    if (field.name == std::wstring_view(L"Duration")) return value.text() + L" minutes";
    return value.text();
}

}

InspectorView viewOf(const Item& item)
{
    InspectorView view;
    view.title = titleOf(item);
    for (const Row& row : rowsOf(item.itemClass)) {
        std::wstring text = shownText(item, *fieldNamed(row.field));
        if (row.always || !text.empty()) view.fields.emplace_back(row.label, std::move(text));
    }
    return view;
}

}
