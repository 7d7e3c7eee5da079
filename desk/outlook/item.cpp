#include "desk/outlook/item.h"

#include "automation/conversion.h"
#include "desk/common/text.h"

#include <algorithm>
#include <cmath>

namespace desk::outlook {

namespace {

using automation::Value;

const DISPID idMessageClass = fieldId(L"MessageClass");
const DISPID idStart = fieldId(L"Start");
const DISPID idEnd = fieldId(L"End");
const DISPID idDuration = fieldId(L"Duration");
const DISPID idType = fieldId(L"Type");
const DISPID idImportance = fieldId(L"Importance");

struct ClassNames {
    const wchar_t* recordKind;
    const wchar_t* messageClass;
    long number;
};

// In the order of ItemClass.
constexpr ClassNames classes[] = {{L"contact", L"IPM.Contact", 40},
                                  {L"distlist", L"IPM.DistList", 69},
                                  {L"journal", L"IPM.Activity", 42},
                                  {L"mail", L"IPM.Note", 43}};

const ClassNames& namesOf(ItemClass itemClass) noexcept
{
    return classes[static_cast<std::size_t>(itemClass)];
}

}

Item::Item(ItemClass newClass) : itemClass(newClass), created(automation::now()), modified(created)
{
    fields[idMessageClass] = Value(messageClass(newClass));
    fields[idImportance] = Value(std::int32_t{1});
    if (newClass != ItemClass::journal) return;
    fields[idType] = Value(L"Phone call");
    fields[idStart] = fields[idEnd] = Value::date(created);
    fields[idDuration] = Value(std::int32_t{0});
}

long classNumber(ItemClass itemClass) noexcept
{
    return namesOf(itemClass).number;
}

const wchar_t* messageClass(ItemClass itemClass) noexcept
{
    return namesOf(itemClass).messageClass;
}

const wchar_t* recordKind(ItemClass itemClass) noexcept
{
    return namesOf(itemClass).recordKind;
}

bool itemClassOf(std::wstring_view wanted, ItemClass& result)
{
    const std::wstring lower = lowerCase(wanted);
    for (const ItemClass candidate : allItemClasses) {
        const std::wstring base = lowerCase(messageClass(candidate));
        if (lower != base && !lower.starts_with(base + L".")) continue;
        result = candidate;
        return true;
    }
    return false;
}

bool itemClassOfKind(std::wstring_view kind, ItemClass& result) noexcept
{
    for (const ItemClass candidate : allItemClasses) {
        if (kind != recordKind(candidate)) continue;
        result = candidate;
        return true;
    }
    return false;
}

std::wstring textOf(const Item& item, DISPID field)
{
    const auto found = item.fields.find(field);
    return found == item.fields.end() ? std::wstring() : found->second.text();
}

std::wstring nameOf(const Item& item)
{
    static const DISPID fullName = fieldId(L"FullName");
    static const DISPID fileAs = fieldId(L"FileAs");
    static const DISPID listName = fieldId(L"DLName");
    static const DISPID subject = fieldId(L"Subject");
    switch (item.itemClass) {
    case ItemClass::contact: {
        std::wstring name = textOf(item, fullName);
        return name.empty() ? textOf(item, fileAs) : name;
    }
    case ItemClass::distributionList: return textOf(item, listName);
    default: return textOf(item, subject);
    }
}

RecipientData& addRecipient(Item& item, std::wstring name, long type)
{
    RecipientData recipient;
    recipient.id = ++item.lastRecipient;
    recipient.name = std::move(name);
    recipient.type = type;
    return item.recipients.emplace_back(std::move(recipient));
}

void setAddressees(Item& item, long type, const std::wstring& names)
{
    std::erase_if(item.recipients, [type](const RecipientData& recipient) { return recipient.type == type; });
    for (std::size_t start = 0; start < names.size();) {
        const std::size_t end = std::min(names.find(L';', start), names.size());
        const std::size_t first = names.find_first_not_of(L' ', start);
        if (first < end) addRecipient(item, names.substr(first, end - first), type);
        start = end + 1;
    }
}

std::wstring recipientNames(const Item& item, long type)
{
    std::wstring names;
    for (const RecipientData& recipient : item.recipients) {
        if (recipient.type != type) continue;
        if (!names.empty()) names += L"; ";
        names += recipient.name;
    }
    return names;
}

}
