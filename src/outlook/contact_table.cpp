#include "outlook/contact_table.h"

#include "automation/array.h"
#include "automation/text.h"
#include "common/error_trap.h"
#include "common/phone_number.h"
#include "outlook/telephone_fields.h"

#include <algorithm>
#include <span>

namespace {

using automation::Object;
using automation::Value;

// A table cuts texts at 255 bytes, which may be 127 characters.
constexpr std::size_t longestWholeText = 127 - 1;
// What stands in the column of a row whose item has no such field.
constexpr SCODE notFound = static_cast<SCODE>(0x8004010FL);
constexpr std::int32_t rowsAtOnce = 500;

// A column that takes longer has been asked about, in milliseconds.
constexpr DWORD longestUnasked = 1'000;
// How long an answer serves, in milliseconds.
constexpr DWORD longestKept = 2'000;

// The columns behind the telephone fields. An item's class itself cannot be one.
constexpr std::size_t entryIdColumn = telephoneFields.size();
constexpr std::size_t messageClassColumn = entryIdColumn + 1;
constexpr std::size_t columnCount = messageClassColumn + 1;

using Row = std::span<const Value>;

// False when somebody was asked about one of them: each of the others would be asked about, too.
bool addColumns(OutlookSession& session, const Object& columns)
{
    session.tablesAreGuarded = true; // unless all of them are taken without a question
    const auto add = [&](const wchar_t* name) {
        const DWORD start = GetTickCount();
        columns.call(L"Add", {name});
        return GetTickCount() - start <= longestUnasked;
    };
    const bool isUnasked = std::all_of(telephoneFields.begin(), telephoneFields.end(), add) && add(L"EntryID") &&
                           add(L"MessageClass");
    session.tablesAreGuarded = !isUnasked;
    return isUnasked;
}

// All items of the contacts folder; empty when Outlook guards its tables.
Object newTable(OutlookSession& session)
{
    const Object contacts = session.OutlookContacts;
    const Object table = contacts.get(L"GetTable").object().sharing(session.names.table);
    const Object columns = table.get(L"Columns").object().sharing(session.names.columns);
    columns.call(L"RemoveAll");
    return addColumns(session, columns) ? table : Object();
}

bool isMissing(const Value& cell)
{
    return cell.type() == VT_NULL || (cell.type() == VT_ERROR && V_ERROR(&cell.variant()) == notFound);
}

// Whether the cell leaves open that the field is the sought number.
bool mayBe(const Value& cell, const std::wstring& sought)
{
    const std::wstring text = isMissing(cell) ? L"" : cell.text();
    const std::wstring stripped = StripPhoneNumber(text);
    return text.size() > longestWholeText ? sought.starts_with(stripped) : stripped == sought;
}

// Whether the row's item is a contact, or one of a form made from it.
bool isContact(const Row& row)
{
    static const std::wstring contact = L"IPM.Contact";
    const Value& cell = row[messageClassColumn];
    if (cell.type() != VT_BSTR) return false;
    const std::wstring text = cell.text();
    return automation::equalWithoutCase(text.substr(0, contact.size()), contact) &&
           (text.size() == contact.size() || text[contact.size()] == L'.');
}

// What the rows read so far tell.
class Tally {
public:
    explicit Tally(const std::wstring& sought) : sought_(sought) {}

    void add(const Row& row)
    {
        onlyContacts_ = onlyContacts_ && isContact(row);
        const auto leavesItOpen = [&](const Value& cell) { return mayBe(cell, sought_); };
        if (std::none_of(row.begin(), row.begin() + telephoneFields.size(), leavesItOpen)) return;
        if (++candidates_ == 1) entryId_ = row[entryIdColumn].text();
    }

    // Whether further rows cannot help.
    bool isUntold() const { return candidates_ > 1 || (candidates_ == 1 && (!onlyContacts_ || entryId_.empty())); }
    NumberOwner owner() const { return candidates_ == 0 ? NumberOwner::nobody : NumberOwner::oneContact; }
    const std::wstring& entryId() const { return entryId_; }

private:
    const std::wstring& sought_;
    int candidates_ = 0;
    bool onlyContacts_ = true;
    std::wstring entryId_;
};

// Whether every row that the table counts was read, and a number's owner can be told from them.
bool readRows(const TableAnswer& answer, Tally& tally)
{
    // Outlook 2007 refuses a block larger than the whole table.
    const std::int32_t block = std::min(answer.rows, rowsAtOnce);
    std::int32_t read = 0;
    while (read < answer.rows) {
        const std::vector<Value> values = automation::elementsOf(answer.table.get(L"GetArray", {block}));
        if (values.empty() || values.size() % columnCount != 0) return false;
        for (std::size_t first = 0; first < values.size(); first += columnCount) {
            tally.add(Row(&values[first], columnCount));
            if (tally.isUntold()) return false;
        }
        read += static_cast<std::int32_t>(values.size() / columnCount);
    }
    // A table shows what comes while it is read: it may be longer by now.
    return answer.table.get(L"EndOfTable").truth();
}

// The table of the event, from its first row on again, or a new one.
Object openTable(OutlookSession& session)
{
    KeptAnswers& kept = session.keptAnswers;
    if (!kept.entries.empty()) {
        const Object table = kept.entries.back().answer.table;
        table.call(L"MoveToStart");
        return table;
    }
    kept.since = GetTickCount();
    return newTable(session);
}

TableAnswer askTable(OutlookSession& session, const std::wstring& sought)
{
    TableAnswer answer;
    trapErrors([&] {
        if (session.tablesAreGuarded) return;
        answer.table = openTable(session);
        if (!answer.table) return;
        answer.rows = answer.table.get(L"GetRowCount").int32();
        Tally tally(sought);
        if (!readRows(answer, tally)) return;
        answer.entryId = tally.entryId();
        answer.owner = tally.owner();
    });
    return answer;
}

}

TableAnswer whoMayHave(OutlookSession& session, const std::wstring& sought)
{
    KeptAnswers& kept = session.keptAnswers;
    if (GetTickCount() - kept.since > longestKept) kept.entries.clear();
    const auto same = std::find_if(kept.entries.begin(), kept.entries.end(),
                                   [&](const KeptAnswers::Entry& entry) { return entry.sought == sought; });
    if (same != kept.entries.end()) {
        const TableAnswer answer = same->answer;
        if (answer.owner == NumberOwner::untold || stillHolds(answer)) return answer;
        kept.entries.clear();
    }
    const TableAnswer answer = askTable(session, sought);
    if (kept.areKept && answer.table) kept.entries.push_back({sought, answer});
    return answer;
}

bool stillHolds(const TableAnswer& answer)
{
    bool holds = false;
    trapErrors([&] { holds = answer.table.get(L"GetRowCount").int32() == answer.rows; });
    return holds;
}

AnswersOfOneEvent::AnswersOfOneEvent(OutlookSession& session) : session_(session)
{
    session_.keptAnswers.areKept = true;
}

AnswersOfOneEvent::~AnswersOfOneEvent()
{
    session_.keptAnswers = KeptAnswers();
}
