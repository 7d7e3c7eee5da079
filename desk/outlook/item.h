// One item's data: what is saved in a folder, or the working copy of an open
// item. The fields depend on one another as Outlook's do: a contact's full
// name on its parts, a journal entry's end on its duration.
#pragma once

#include "automation/value.h"
#include "desk/common/store_file.h"
#include "desk/outlook/fields.h"

#include <map>
#include <string>
#include <vector>

namespace desk::outlook {

struct RecipientData {
    unsigned id = 0; // within its item, never used twice
    std::wstring name;
    std::wstring address;
    long type = 1;   // of a message: 1 To, 2 CC, 3 BCC; else 1
    bool resolved = false;
};

struct Item {
    explicit Item(ItemClass itemClass);

    ItemClass itemClass;
    std::wstring entryId; // "" until the first save
    std::map<DISPID, automation::Value> fields;
    std::vector<RecipientData> recipients;
    unsigned lastRecipient = 0;
    long folder = 0;      // the default folder that it lies in or goes to
    DATE created = 0;
    DATE modified = 0;
    unsigned version = 0; // counts the saves
    bool deleted = false;
};

// Outlook's number of a class (ContactItem.Class) and its message class.
long classNumber(ItemClass itemClass) noexcept;
const wchar_t* messageClass(ItemClass itemClass) noexcept;

// The class of a message class such as "IPM.Contact.Special"; false for none of the desk's.
bool itemClassOf(std::wstring_view messageClass, ItemClass& result);

// A field's value in its own type; an empty text, 0 or the date that stands
// for "none" when it was never set. `Saved` and `Size` are the open item's affair.
automation::Value valueOf(const Item& item, const Field& field);
std::wstring textOf(const Item& item, DISPID field);

// Sets a field that may be written, and those that follow from it. `value` is
// in the field's own type.
void setValue(Item& item, const Field& field, const automation::Value& value);

// What the item's window is called, without its kind: the name or the subject.
std::wstring nameOf(const Item& item);

RecipientData& addRecipient(Item& item, std::wstring name, long type);
std::wstring recipientNames(const Item& item, long type); // "A; B"
void setAddressees(Item& item, long type, const std::wstring& names); // these alone, of that type

// The record of the store file; fields that hold nothing are left out.
StoreRecord recordOf(const Item& item);

// The item of a record of that kind. Throws std::runtime_error (refuseRecord).
Item itemOf(const StoreRecord& record);

// Sets one field as a record has it. Throws std::runtime_error naming the
// record's line.
void setFromText(Item& item, const StoreRecord& record, const std::wstring& name, const std::wstring& text);

// Kinds of record: contact, distlist, journal, mail; null for another.
const wchar_t* recordKind(ItemClass itemClass) noexcept;
bool itemClassOfKind(std::wstring_view kind, ItemClass& result) noexcept;

// The date that stands for "none": 1 January 4501.
inline constexpr DATE noDate = 949998;

}
