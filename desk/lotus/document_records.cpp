#include "desk/lotus/document_records.h"

#include "desk/common/text.h"

#include <cwchar>
#include <stdexcept>

namespace desk::lotus {

namespace {

constexpr std::pair<const wchar_t*, ItemType> typeNames[] = {{L"text", ItemType::text},
                                                             {L"number", ItemType::number},
                                                             {L"date", ItemType::date},
                                                             {L"richtext", ItemType::richText}};

constexpr const wchar_t* noteIdField = L"@NoteID";
constexpr const wchar_t* universalIdField = L"@UniversalID";
constexpr const wchar_t* createdField = L"@Created";
constexpr const wchar_t* modifiedField = L"@Modified";

std::wstring nameOf(ItemType type)
{
    for (const auto& [name, each] : typeNames)
        if (each == type) return name;
    return L"";
}

ItemType typeNamed(const std::wstring& name)
{
    for (const auto& [each, type] : typeNames)
        if (name == each) return type;
    throw std::runtime_error("\"" + utf8(name) + "\" is none of the types text, number, date, richtext");
}

std::wstring storedNumber(double number)
{
    wchar_t text[32];
    swprintf(text, 32, L"%.15g", number);
    return text;
}

double numberFrom(const std::wstring& text)
{
    wchar_t* end = nullptr;
    const double number = std::wcstod(text.c_str(), &end);
    if (text.empty() || *end) throw std::runtime_error("\"" + utf8(text) + "\" is no number");
    return number;
}

void addValue(Item& item, const std::wstring& text)
{
    if (item.isText()) item.texts.push_back(text);
    else item.numbers.push_back(item.type == ItemType::date ? dateFromIso(text) : numberFrom(text));
}

void addItem(StoreRecord& record, const Item& item)
{
    const std::wstring name = typedText(*item.name, item.type);
    for (std::size_t index = 0; index < item.size(); ++index) {
        const std::wstring value = item.isText()                 ? item.texts[index]
                                   : item.type == ItemType::date ? isoText(item.numbers[index])
                                                                 : storedNumber(item.numbers[index]);
        record.add(index ? name + L"+" : name, value);
    }
}

// Whether the field is no item; if so, the note has it now.
bool readOwnField(Note& note, const std::wstring& name, const std::wstring& value)
{
    if (!name.starts_with(L'@')) return false;
    if (name == noteIdField) note.noteId = numberOf(L"0x" + value, "note ID");
    else if (name == universalIdField) note.universalId = value;
    else if (name == createdField) note.created = dateFromIso(value);
    else if (name == modifiedField) note.modified = dateFromIso(value);
    else throw std::runtime_error("has no field \"" + utf8(name) + "\"");
    return true;
}

}

std::pair<const ItemName*, ItemType> typedName(const std::wstring& text)
{
    const std::size_t colon = text.find(L':');
    return {&itemName(text.substr(0, colon)),
            colon == std::wstring::npos ? ItemType::text : typeNamed(text.substr(colon + 1))};
}

std::wstring typedText(const ItemName& name, ItemType type)
{
    return type == ItemType::text ? name.spelling : name.spelling + L":" + nameOf(type);
}

StoreRecord recordOf(const Note& note)
{
    StoreRecord record{L"document", {}, 0};
    if (note.noteId != 0) record.add(noteIdField, note.noteIdText());
    if (!note.universalId.empty()) record.add(universalIdField, note.universalId);
    if (note.created != 0) record.add(createdField, isoText(note.created));
    if (note.modified != 0) record.add(modifiedField, isoText(note.modified));
    for (const Item& item : note.items) addItem(record, item);
    return record;
}

Note noteOf(const StoreRecord& record)
{
    Note note;
    for (const auto& [name, value] : record.fields) {
        if (readOwnField(note, name, value)) continue;
        if (name.ends_with(L'+')) {
            if (note.items.empty() || typedText(*note.items.back().name, note.items.back().type) + L"+" != name)
                throw std::runtime_error("\"" + utf8(name) + "\" does not follow its first value");
        } else {
            const auto [item, type] = typedName(name);
            note.items.push_back({item, type, {}, {}});
        }
        addValue(note.items.back(), value);
    }
    return note;
}

void change(Note& note, const StoreRecord& record)
{
    const Note changes = noteOf(record);
    for (const Item& item : changes.items) note.remove(*item.name);
    note.items.insert(note.items.end(), changes.items.begin(), changes.items.end());
}

}
