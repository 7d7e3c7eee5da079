// Outlook's own control commands; docs/desk.md lists them.
#include "desk/common/text.h"
#include "desk/outlook/application.h"
#include "desk/outlook/item_object.h"
#include "desk/outlook/outlook.h"

#include <algorithm>
#include <initializer_list>
#include <stdexcept>

namespace desk::outlook {

namespace {

constexpr const wchar_t* unsavedMark = L"Unsaved";

StoreRecord unsavedRecord(const Item& item)
{
    StoreRecord record = savedRecord(item);
    record.fields.insert(record.fields.begin(), {unsavedMark, L"True"});
    return record;
}

// The saved items of some folders and classes, then what is displayed of them
// with changes that are not saved.
class Dump {
public:
    explicit Dump(Outlook& outlook) : outlook_(outlook) {}

    std::wstring of(std::initializer_list<ItemClass> classes)
    {
        for (const Folder& folder : outlook_.mailbox().all()) {
            if (folder.number == folders::deleted) continue;
            for (const SavedItem& item : folder.items)
                if (wanted(classes, *item)) records_.push_back(savedRecord(*item));
        }
        for (const Outlook::Inspector& inspector : outlook_.inspectors()) {
            const Item& item = inspector.item->item();
            if (inspector.item->hasUnsavedData() && wanted(classes, item)) records_.push_back(unsavedRecord(item));
        }
        return storeText(records_);
    }

private:
    static bool wanted(std::initializer_list<ItemClass> classes, const Item& item)
    {
        return std::find(classes.begin(), classes.end(), item.itemClass) != classes.end();
    }

    Outlook& outlook_;
    std::vector<StoreRecord> records_;
};

std::wstring windowLines(const Outlook& outlook)
{
    std::vector<std::wstring> lines;
    for (const Outlook::Inspector& inspector : outlook.inspectors()) {
        const Item& item = inspector.item->item();
        std::wstring line = escaped(inspector.item->view().title) + L"\t" + recordKind(item.itemClass) + L"\t";
        lines.push_back(line + (item.entryId.empty() ? L"unsaved" : item.entryId));
    }
    return joined(lines);
}

std::wstring counts(Outlook& outlook)
{
    std::vector<std::wstring> lines;
    for (const Folder& folder : outlook.mailbox().all())
        lines.push_back(std::to_wstring(folder.items.size()) + L" " + folder.name);
    return joined(lines);
}

// "contact" and so on, then its fields from the next line on.
Item newItem(std::wstring_view text)
{
    const std::wstring kind = takeWord(text);
    std::vector<StoreRecord> records = parseStore(L"[" + kind + L"]\n" + std::wstring(text));
    if (records.size() != 1) throw std::runtime_error("one item at a time");
    Item item = itemOf(records[0]);
    item.folder = Mailbox::homeOf(item.itemClass);
    return item;
}

std::wstring addItem(Outlook& outlook, std::wstring_view text)
{
    const Item item = newItem(text);
    if (!item.entryId.empty() && outlook.mailbox().find(item.entryId))
        throw std::runtime_error("the EntryID is used already");
    const SavedItem saved = outlook.mailbox().add(item);
    outlook.changed();
    return saved->entryId;
}

std::wstring removeItem(Outlook& outlook, std::wstring_view entryId)
{
    const SavedItem saved = outlook.mailbox().find(std::wstring(entryId));
    if (!saved) throw std::runtime_error("there is no such item");
    makeItem(outlook, saved)->answerDelete();
    return L"ok";
}

// "ENTRYID", then the fields that get new values: what a user changes by hand.
std::wstring changeItem(Outlook& outlook, std::wstring_view text)
{
    const std::wstring entryId = takeWord(text);
    const SavedItem saved = outlook.mailbox().find(entryId);
    if (!saved) throw std::runtime_error("there is no such item");
    const auto changes = parseStore(L"[change]\n" + std::wstring(text));
    if (changes.size() != 1) throw std::runtime_error("one item at a time");
    if (changes[0].find(L"EntryID")) throw std::runtime_error("an EntryID cannot be changed");
    Item item = *saved;
    for (const auto& [name, value] : changes[0].fields) setFromText(item, changes[0], name, value);
    item.version = saved->version + 1;
    *saved = std::move(item);
    outlook.updateInspector(*makeItem(outlook, saved).get());
    outlook.changed();
    return L"ok";
}

std::wstring saveWindows(Outlook& outlook)
{
    while (!outlook.inspectors().empty()) outlook.savedByUser(outlook.inspectors().back().id);
    return L"ok";
}

// What Outlook makes of a telephone number that its user types in full.
std::wstring masked(const std::wstring& typed)
{
    const bool foreign = typed.starts_with(L"+1");
    const std::wstring digits = foreign ? typed.substr(2) : typed;
    if (digits.size() != 10 || digits.find_first_not_of(L"0123456789") != std::wstring::npos) return typed;
    return (foreign ? L"+1 (" : L"(") + digits.substr(0, 3) + L") " + digits.substr(3, 3) + L"-" + digits.substr(6);
}

bool isTelephone(const std::wstring& field)
{
    return field.ends_with(L"TelephoneNumber") || field.ends_with(L"FaxNumber");
}

// "ENTRYID", then fields: what a user types into the item's window, not saved yet.
std::wstring typeIntoItem(Outlook& outlook, std::wstring_view text)
{
    const std::wstring entryId = takeWord(text);
    const auto typed = parseStore(L"[typed]\n" + std::wstring(text));
    if (typed.size() != 1) throw std::runtime_error("one item at a time");
    outlook.open(entryId);
    const automation::ComPtr<ItemObject> item = outlook.itemOf(outlook.mailbox().find(entryId));
    for (const auto& [name, value] : typed[0].fields)
        setFromText(item->edit(), typed[0], name, isTelephone(name) ? masked(value) : value);
    item->changed();
    return L"ok";
}

std::wstring setOld(Outlook& outlook, std::wstring_view rest)
{
    if (rest != L"on" && rest != L"off") throw std::runtime_error("old: on or off");
    outlook.setVersion(rest == L"on" ? Version::v2003 : Version::v2016);
    return L"ok";
}

std::wstring showFolder(Screen& screen, std::wstring_view name)
{
    if (!screen.showFolder(name)) throw std::runtime_error("show: no such folder");
    return L"ok";
}

}

// "BLOCKS COMMAND": what somebody else does when so many more blocks of tables have been read.
void Outlook::deferCommand(std::wstring_view text)
{
    const unsigned long blocks = numberOf(takeWord(text), "blocks");
    if (blocks == 0) throw std::runtime_error("the next block is number 1");
    const std::wstring word = takeWord(text);
    if (word != L"add" && word != L"change" && word != L"delete")
        throw std::runtime_error("later: add, change or delete");
    deferredCommand_ = DeferredCommand{word, std::wstring(text), blocks};
}

std::optional<std::wstring> Outlook::settingCommand(const std::wstring& word, std::wstring_view rest)
{
    for (const wchar_t* setting : {L"version", L"guard", L"missingcell", L"longesttext", L"roworder", L"arrayshape",
                                   L"hiddencolumn", L"identifiers", L"creation"}) {
        if (word != setting) continue;
        change(setup_, word, rest);
        changed();
        return L"ok";
    }
    return std::nullopt;
}

std::optional<std::wstring> Outlook::command(const std::wstring& word, std::wstring_view rest)
{
    if (word == L"contacts") return Dump(*this).of({ItemClass::contact, ItemClass::distributionList});
    if (word == L"journal") return Dump(*this).of({ItemClass::journal});
    if (word == L"mails") return Dump(*this).of({ItemClass::mail});
    if (word == L"windows") return windowLines(*this);
    if (word == L"count") return counts(*this);
    if (word == L"add") return addItem(*this, rest);
    if (word == L"change") return changeItem(*this, rest);
    if (word == L"type") return typeIntoItem(*this, rest);
    if (word == L"delete") return removeItem(*this, rest);
    if (word == L"open") return open(std::wstring(rest)), L"ok";
    if (word == L"close-windows") return closeWindows(), L"ok";
    if (word == L"save-windows") return saveWindows(*this);
    if (word == L"show") return showFolder(screen_, rest);
    if (word == L"old") return setOld(*this, rest);
    if (word == L"questions") return std::to_wstring(guard_.questions());
    if (word == L"creations") return std::to_wstring(creations_);
    if (word == L"later") return deferCommand(rest), L"ok";
    return settingCommand(word, rest);
}

}
