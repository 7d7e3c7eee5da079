// Items as records of the store file.
#include "desk/common/text.h"
#include "desk/outlook/item.h"

#include <stdexcept>

namespace desk::outlook {

namespace {

using automation::Value;

// A message names its recipients by type; elsewhere there is only one.
constexpr const wchar_t* recipientField = L"Recipient";
constexpr const wchar_t* addresseeFields[] = {L"To", L"CC", L"BCC"};

std::wstring storedText(const Value& value, FieldType type)
{
    switch (type) {
    case FieldType::text: return value.text();
    case FieldType::date: return isoText(value.asDate());
    case FieldType::number: return std::to_wstring(value.int32());
    case FieldType::boolean: break;
    }
    return value.isTrue() ? L"True" : L"False";
}

// What a new item of the class has anyway need not be written.
bool isDefault(const Item& item, const Field& field, const Value& value)
{
    if (field.name == std::wstring_view(L"MessageClass")) return value.text() == messageClass(item.itemClass);
    if (field.name == std::wstring_view(L"Importance")) return value.int32() == 1;
    return field.type == FieldType::boolean && !value.isTrue();
}

void addRecipients(StoreRecord& record, const Item& item)
{
    if (item.itemClass != ItemClass::mail) {
        for (const RecipientData& recipient : item.recipients) record.add(recipientField, recipient.name);
        return;
    }
    for (const wchar_t* field : addresseeFields) {
        std::wstring names = valueOf(item, *fieldNamed(field)).text();
        if (!names.empty()) record.add(field, std::move(names));
    }
}

Value fromText(const std::wstring& text, FieldType type)
{
    switch (type) {
    case FieldType::text: return text;
    case FieldType::date: return Value::date(dateFromIso(text));
    case FieldType::number: return static_cast<std::int32_t>(numberOf(text, "number"));
    case FieldType::boolean: break;
    }
    if (text != L"True" && text != L"False") throw std::runtime_error("neither True nor False");
    return text == L"True";
}

}

void setFromText(Item& item, const StoreRecord& record, const std::wstring& name, const std::wstring& text)
{
    if (name == recipientField && item.itemClass == ItemClass::journal) {
        addRecipient(item, text, 1);
        return;
    }
    const Field* field = fieldNamed(name);
    if (!field || field->name != name || !field->in(item.itemClass))
        refuseRecord(record, "has no field \"" + utf8(name) + "\"");
    try {
        const Value value = fromText(text, field->type);
        // Both ends of a journal entry's time are written, and its duration
        // in whole minutes follows from them.
        if (name == L"EntryID") item.entryId = text;
        else if (field->has(Field::computed) && field->has(Field::readOnly)) throw std::runtime_error("computed");
        else setValue(item, *field, value);
    } catch (const std::exception& error) {
        refuseRecord(record, utf8(name) + ": " + error.what());
    }
}

StoreRecord recordOf(const Item& item)
{
    StoreRecord record;
    record.kind = recordKind(item.itemClass);
    if (!item.entryId.empty()) record.add(L"EntryID", item.entryId);
    for (const Field& field : allFields) {
        const auto found = item.fields.find(field.id());
        if (found == item.fields.end() || isDefault(item, field, found->second)) continue;
        record.add(field.name, storedText(found->second, field.type));
    }
    addRecipients(record, item);
    return record;
}

Item itemOf(const StoreRecord& record)
{
    ItemClass itemClass;
    if (!itemClassOfKind(record.kind, itemClass)) refuseRecord(record, "is no kind of item");
    Item item(itemClass);
    // The dependent ones after what they depend on: a name given in full
    // beside its parts must not be taken apart again.
    for (const auto& [name, text] : record.fields)
        if (name == L"FullName" && !record.find(L"FirstName") && !record.find(L"LastName"))
            setFromText(item, record, name, text);
    for (const auto& [name, text] : record.fields)
        if (name != L"FullName" && name != L"FileAs" && name != L"Subject" && name != L"End" && name != L"Duration" &&
            name != L"Folder")
            setFromText(item, record, name, text);
    for (const auto& [name, text] : record.fields) {
        if (name == L"FileAs" || name == L"Subject" || name == L"End") setFromText(item, record, name, text);
        if (name == L"Duration" && !record.find(L"End")) setFromText(item, record, name, text);
    }
    return item;
}

}
