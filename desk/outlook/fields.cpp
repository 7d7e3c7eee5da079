#include "desk/outlook/fields.h"

#include "desk/common/text.h"

#include <cstddef>
#include <iterator>
#include <string>
#include <unordered_map>

namespace desk::outlook {

namespace {

constexpr unsigned bit(ItemClass item)
{
    return 1u << static_cast<unsigned>(item);
}

constexpr unsigned contact = bit(ItemClass::contact);
constexpr unsigned list = bit(ItemClass::distributionList);
constexpr unsigned journal = bit(ItemClass::journal);
constexpr unsigned mail = bit(ItemClass::mail);
constexpr unsigned every = contact | list | journal | mail;

constexpr auto text = FieldType::text;
constexpr auto date = FieldType::date;
constexpr auto number = FieldType::number;
constexpr auto boolean = FieldType::boolean;

constexpr unsigned none = 0;
constexpr unsigned readOnly = Field::readOnly;
constexpr unsigned noFilter = Field::noFilter;
constexpr unsigned noTable = Field::noTable;
constexpr unsigned computed = Field::computed;
constexpr unsigned guarded = Field::guarded;

constexpr Field fields[] = {
    // every item
    {L"EntryID", text, every, readOnly | noFilter | computed},
    {L"MessageClass", text, every, none},
    {L"Subject", text, every, none},
    // a contact: the name
    {L"Title", text, contact, none},
    {L"FirstName", text, contact, none},
    {L"MiddleName", text, contact, none},
    {L"LastName", text, contact, none},
    {L"Suffix", text, contact, none},
    {L"NickName", text, contact, none},
    {L"Initials", text, contact, none},
    {L"FullName", text, contact, none},
    {L"FileAs", text, contact, none},
    {L"CompanyName", text, contact, none},
    {L"JobTitle", text, contact, none},
    {L"Department", text, contact, none},
    {L"Profession", text, contact, none},
    {L"OfficeLocation", text, contact, none},
    {L"ManagerName", text, contact, none},
    {L"AssistantName", text, contact, none},
    // a contact: the telephones
    {L"AssistantTelephoneNumber", text, contact, none},
    {L"BusinessTelephoneNumber", text, contact, none},
    {L"Business2TelephoneNumber", text, contact, none},
    {L"BusinessFaxNumber", text, contact, none},
    {L"CallbackTelephoneNumber", text, contact, none},
    {L"CarTelephoneNumber", text, contact, none},
    {L"CompanyMainTelephoneNumber", text, contact, none},
    {L"HomeTelephoneNumber", text, contact, none},
    {L"Home2TelephoneNumber", text, contact, none},
    {L"HomeFaxNumber", text, contact, none},
    {L"ISDNNumber", text, contact, none},
    {L"MobileTelephoneNumber", text, contact, none},
    {L"OtherTelephoneNumber", text, contact, none},
    {L"OtherFaxNumber", text, contact, none},
    {L"PagerNumber", text, contact, none},
    {L"PrimaryTelephoneNumber", text, contact, none},
    {L"RadioTelephoneNumber", text, contact, none},
    {L"TelexNumber", text, contact, none},
    {L"TTYTDDTelephoneNumber", text, contact, none},
    // a contact: mail addresses
    {L"Email1Address", text, contact, guarded},
    {L"Email1AddressType", text, contact, guarded},
    {L"Email1DisplayName", text, contact, guarded},
    {L"Email1EntryID", text, contact, readOnly | noFilter | noTable | computed | guarded},
    {L"Email2Address", text, contact, guarded},
    {L"Email2AddressType", text, contact, guarded},
    {L"Email2DisplayName", text, contact, guarded},
    {L"Email2EntryID", text, contact, readOnly | noFilter | noTable | computed | guarded},
    {L"Email3Address", text, contact, guarded},
    {L"Email3AddressType", text, contact, guarded},
    {L"Email3DisplayName", text, contact, guarded},
    {L"Email3EntryID", text, contact, readOnly | noFilter | noTable | computed | guarded},
    // a contact: postal addresses
    {L"BusinessAddressStreet", text, contact, none},
    {L"BusinessAddressCity", text, contact, none},
    {L"BusinessAddressState", text, contact, none},
    {L"BusinessAddressPostalCode", text, contact, none},
    {L"BusinessAddressCountry", text, contact, none},
    {L"BusinessAddressPostOfficeBox", text, contact, none},
    {L"HomeAddressStreet", text, contact, none},
    {L"HomeAddressCity", text, contact, none},
    {L"HomeAddressState", text, contact, none},
    {L"HomeAddressPostalCode", text, contact, none},
    {L"HomeAddressCountry", text, contact, none},
    {L"HomeAddressPostOfficeBox", text, contact, none},
    {L"OtherAddressStreet", text, contact, none},
    {L"OtherAddressCity", text, contact, none},
    {L"OtherAddressState", text, contact, none},
    {L"OtherAddressPostalCode", text, contact, none},
    {L"OtherAddressCountry", text, contact, none},
    {L"OtherAddressPostOfficeBox", text, contact, none},
    // a contact: the rest
    {L"Account", text, contact, none},
    {L"BusinessHomePage", text, contact, none},
    {L"CustomerID", text, contact, none},
    {L"FTPSite", text, contact, none},
    {L"GovernmentIDNumber", text, contact, none},
    {L"Hobby", text, contact, none},
    {L"Language", text, contact, none},
    {L"OrganizationalIDNumber", text, contact, none},
    {L"PersonalHomePage", text, contact, none},
    {L"ReferredBy", text, contact, guarded},
    {L"Spouse", text, contact, none},
    {L"User1", text, contact, none},
    {L"User2", text, contact, none},
    {L"User3", text, contact, none},
    {L"User4", text, contact, none},
    {L"WebPage", text, contact, none},
    {L"Children", text, contact, noFilter},
    {L"Birthday", date, contact, none},
    {L"Anniversary", date, contact, none},
    // a contact: forms of the name
    {L"LastNameAndFirstName", text, contact, readOnly | computed},
    {L"CompanyAndFullName", text, contact, readOnly | computed},
    {L"FullNameAndCompany", text, contact, readOnly | computed},
    {L"LastFirstAndSuffix", text, contact, readOnly | noFilter | noTable | computed},
    {L"LastFirstNoSpace", text, contact, readOnly | noFilter | noTable | computed},
    {L"LastFirstSpaceOnly", text, contact, readOnly | noFilter | noTable | computed},
    {L"LastFirstNoSpaceCompany", text, contact, readOnly | noFilter | noTable | computed},
    {L"LastFirstSpaceOnlyCompany", text, contact, readOnly | noFilter | noTable | computed},
    {L"CompanyLastFirstNoSpace", text, contact, readOnly | noFilter | noTable | computed},
    {L"CompanyLastFirstSpaceOnly", text, contact, readOnly | noFilter | noTable | computed},
    {L"LastFirstNoSpaceAndSuffix", text, contact, readOnly | noFilter | noTable | computed},
    // a distribution list
    {L"DLName", text, list, noFilter | noTable},
    {L"MemberCount", number, list, readOnly | noFilter | noTable | computed},
    // a journal entry
    {L"Type", text, journal, none},
    {L"Start", date, journal, none},
    {L"End", date, journal, none},
    {L"Duration", number, journal, none},
    {L"ContactNames", text, journal, readOnly | noFilter | noTable | computed | guarded},
    // a message
    {L"To", text, mail, computed | guarded},
    {L"CC", text, mail, computed | guarded},
    {L"BCC", text, mail, computed | guarded},
    {L"SenderName", text, mail, readOnly | guarded},
    {L"SenderEmailAddress", text, mail, readOnly | guarded},
    {L"SentOn", date, mail, readOnly},
    {L"ReceivedTime", date, mail, readOnly},
    {L"Sent", boolean, mail, readOnly | noFilter | noTable},
    {L"HTMLBody", text, mail, noFilter | noTable | guarded},
    // every item again
    {L"Companies", text, every, noFilter},
    {L"Categories", text, every, none},
    {L"BillingInformation", text, every, none},
    {L"Mileage", text, every, none},
    {L"Importance", number, every, none},
    {L"Sensitivity", number, every, none},
    {L"NoAging", boolean, every, none},
    {L"UnRead", boolean, every, none},
    {L"Size", number, every, readOnly | computed},
    {L"Class", number, every, readOnly | noFilter | noTable | computed},
    {L"CreationTime", date, every, readOnly | computed},
    {L"LastModificationTime", date, every, readOnly | computed},
    {L"Saved", boolean, every, readOnly | noFilter | noTable | computed},
    {L"Body", text, every, noFilter | guarded},
};

constexpr DISPID firstId = 0x3A00;

}

DISPID Field::id() const noexcept
{
    return firstId + static_cast<DISPID>(this - fields);
}

const Field* FieldRange::begin() const noexcept
{
    return std::begin(fields);
}

const Field* FieldRange::end() const noexcept
{
    return std::end(fields);
}

const Field* fieldOf(DISPID id) noexcept
{
    return id >= firstId && id < firstId + static_cast<DISPID>(std::size(fields)) ? &fields[id - firstId] : nullptr;
}

const Field* fieldNamed(std::wstring_view name)
{
    static const auto index = [] {
        std::unordered_map<std::wstring, const Field*> byName;
        for (const Field& field : fields) byName.emplace(lowerCase(field.name), &field);
        return byName;
    }();
    const auto found = index.find(lowerCase(name));
    return found == index.end() ? nullptr : found->second;
}

DISPID fieldId(std::wstring_view name) noexcept
{
    for (const Field& field : fields)
        if (field.name == name) return field.id();
    return DISPID_UNKNOWN;
}

}
