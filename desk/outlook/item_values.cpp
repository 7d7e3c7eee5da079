// Reading and writing an item's fields, with what follows from them.
#include "desk/common/text.h"
#include "desk/outlook/item.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace desk::outlook {

namespace {

using automation::Value;

constexpr double minutesOfDay = 24 * 60;

const DISPID idTitle = fieldId(L"Title");
const DISPID idFirst = fieldId(L"FirstName");
const DISPID idMiddle = fieldId(L"MiddleName");
const DISPID idLast = fieldId(L"LastName");
const DISPID idSuffix = fieldId(L"Suffix");
const DISPID idFullName = fieldId(L"FullName");
const DISPID idFileAs = fieldId(L"FileAs");
const DISPID idCompany = fieldId(L"CompanyName");
const DISPID idSubject = fieldId(L"Subject");
const DISPID idListName = fieldId(L"DLName");
const DISPID idStart = fieldId(L"Start");
const DISPID idEnd = fieldId(L"End");
const DISPID idDuration = fieldId(L"Duration");
const DISPID idEntryId = fieldId(L"EntryID");
const DISPID idClass = fieldId(L"Class");
const DISPID idCreated = fieldId(L"CreationTime");
const DISPID idModified = fieldId(L"LastModificationTime");
const DISPID idContactNames = fieldId(L"ContactNames");
const std::array<DISPID, 3> idAddressees{fieldId(L"To"), fieldId(L"CC"), fieldId(L"BCC")};

std::wstring joinedBy(const wchar_t* separator, const std::wstring& a, const std::wstring& b)
{
    return a.empty() ? b : b.empty() ? a : a + separator + b;
}

struct NameForm {
    const wchar_t* field;
    const wchar_t* separator; // between last name and first name
    bool suffix;
    int company;              // -1 before, 1 after, 0 not at all
};

constexpr NameForm nameForms[] = {
    {L"LastNameAndFirstName", L", ", false, 0},     {L"LastFirstAndSuffix", L", ", true, 0},
    {L"LastFirstNoSpace", L"", false, 0},           {L"LastFirstNoSpaceAndSuffix", L"", true, 0},
    {L"LastFirstSpaceOnly", L" ", false, 0},        {L"LastFirstNoSpaceCompany", L"", false, 1},
    {L"LastFirstSpaceOnlyCompany", L" ", false, 1}, {L"CompanyLastFirstNoSpace", L"", false, -1},
    {L"CompanyLastFirstSpaceOnly", L" ", false, -1}};

std::wstring nameInForm(const Item& item, const NameForm& form)
{
    std::wstring name = joinedBy(form.separator, textOf(item, idLast), textOf(item, idFirst));
    if (form.suffix) name = joinedBy(L" ", name, textOf(item, idSuffix));
    const std::wstring company = textOf(item, idCompany);
    if (form.company < 0) return joinedBy(L"\r\n", company, name);
    return form.company > 0 ? joinedBy(L"\r\n", name, company) : name;
}

Value computedValue(const Item& item, const Field& field)
{
    const DISPID id = field.id();
    if (id == idEntryId) return item.entryId;
    if (id == idClass) return classNumber(item.itemClass);
    if (id == idCreated) return Value::date(item.created);
    if (id == idModified) return Value::date(item.modified);
    if (id == idContactNames) return recipientNames(item, 1);
    for (std::size_t type = 0; type < idAddressees.size(); ++type)
        if (id == idAddressees[type]) return recipientNames(item, static_cast<long>(type) + 1);
    const std::wstring_view name = field.name;
    if (name == L"CompanyAndFullName") return joinedBy(L"\r\n", textOf(item, idCompany), textOf(item, idFullName));
    if (name == L"FullNameAndCompany") return joinedBy(L"\r\n", textOf(item, idFullName), textOf(item, idCompany));
    for (const NameForm& form : nameForms)
        if (name == form.field) return nameInForm(item, form);
    if (field.type == FieldType::number) return std::int32_t{0}; // MemberCount: lists on the desk have no members
    return field.type == FieldType::boolean ? Value(false) : Value(L"");
}

void keepText(Item& item, DISPID id, const std::wstring& text)
{
    if (text.empty()) item.fields.erase(id);
    else item.fields[id] = Value(text);
}

// Without a name, a contact is filed under its company.
void fileContact(Item& item)
{
    const std::wstring name = joinedBy(L", ", textOf(item, idLast), textOf(item, idFirst));
    keepText(item, idFileAs, name.empty() ? textOf(item, idCompany) : name);
    keepText(item, idSubject, textOf(item, idFullName));
}

void nameFromParts(Item& item)
{
    std::wstring name;
    for (const DISPID part : {idTitle, idFirst, idMiddle, idLast, idSuffix})
        name = joinedBy(L" ", name, textOf(item, part));
    keepText(item, idFullName, name);
    fileContact(item);
}

// "First Middle Last" or "Last, First".
void partsFromName(Item& item, const std::wstring& name)
{
    std::wstring_view rest = name;
    std::wstring last, first, middle;
    const std::size_t comma = name.find(L',');
    if (comma != std::wstring::npos) {
        last = name.substr(0, comma);
        rest.remove_prefix(comma + 1);
    }
    first = takeWord(rest);
    while (!rest.empty()) {
        std::wstring word = takeWord(rest);
        if (rest.empty() && last.empty()) last = std::move(word);
        else middle = joinedBy(L" ", middle, word);
    }
    keepText(item, idFirst, first);
    keepText(item, idMiddle, middle);
    keepText(item, idLast, last);
    nameFromParts(item);
}

DATE dateIn(const Item& item, DISPID id)
{
    return item.fields.at(id).asDate();
}

void setDuration(Item& item, std::int32_t minutes)
{
    item.fields[idDuration] = Value(minutes);
    item.fields[idEnd] = Value::date(dateIn(item, idStart) + minutes / minutesOfDay);
}

void setEnd(Item& item, DATE end)
{
    if (end < dateIn(item, idStart)) item.fields[idStart] = Value::date(end);
    item.fields[idEnd] = Value::date(end);
    const double minutes = (end - dateIn(item, idStart)) * minutesOfDay;
    // A date's rounding must not turn five minutes into four.
    item.fields[idDuration] = Value(static_cast<std::int32_t>(std::floor(minutes + 0.001)));
}

void setJournalTime(Item& item, DISPID id, const Value& value)
{
    if (id == idEnd) {
        setEnd(item, value.asDate());
    } else if (id == idDuration) {
        setDuration(item, value.int32());
    } else {
        item.fields[idStart] = value;
        setDuration(item, item.fields[idDuration].int32());
    }
}

// Writes the fields that the named one stands for; false for a field that stands for itself.
bool setFieldsBehind(Item& item, DISPID id, const Value& value)
{
    const auto addressees = std::find(idAddressees.begin(), idAddressees.end(), id);
    if (addressees != idAddressees.end())
        setAddressees(item, static_cast<long>(addressees - idAddressees.begin()) + 1, value.text());
    else if (id == idFullName) partsFromName(item, value.text());
    else if (id == idStart || id == idEnd || id == idDuration) setJournalTime(item, id, value);
    else return false;
    return true;
}

}

Value valueOf(const Item& item, const Field& field)
{
    if (field.has(Field::computed)) return computedValue(item, field);
    const auto found = item.fields.find(field.id());
    if (found != item.fields.end()) return found->second;
    switch (field.type) {
    case FieldType::text: return L"";
    case FieldType::date: return Value::date(noDate);
    case FieldType::number: return std::int32_t{0};
    case FieldType::boolean: break;
    }
    return false;
}

void setValue(Item& item, const Field& field, const Value& value)
{
    const DISPID id = field.id();
    if (setFieldsBehind(item, id, value)) return;
    if (field.type == FieldType::text) keepText(item, id, value.text());
    else item.fields[id] = value;
    if (id == idTitle || id == idFirst || id == idMiddle || id == idLast || id == idSuffix) nameFromParts(item);
    if (id == idCompany && item.itemClass == ItemClass::contact) fileContact(item);
    if (id == idListName) keepText(item, idSubject, value.text());
}

}
