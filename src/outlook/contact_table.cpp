#include "outlook/contact_table.h"

#include "automation/text.h"
#include "common/error_trap.h"
#include "common/phone_number.h"
#include "outlook/table_block.h"

#include <algorithm>

namespace hublink {

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

// False when somebody was asked about one of them: each of the others would be asked about, too.
bool addColumns(OutlookSession& session, const Object& columns)
{
    session.tablesAreGuarded = true; // unless all of them are taken without a question
    const auto add = [&](const wchar_t* name) {
        const DWORD start = GetTickCount();
        columns.call(L"Add", {name});
        return GetTickCount() - start <= longestUnasked;
    };
    const bool isUnasked =
        std::all_of(telephoneFields.begin(), telephoneFields.end(), add) && add(L"EntryID") && add(L"MessageClass");
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

// Whether the item is a contact, or one of a form made from it.
bool isContact(const Value& cell)
{
    static const std::wstring contact = L"IPM.Contact";
    if (cell.type() != VT_BSTR) return false;
    const std::wstring text = cell.text();
    return automation::equalWithoutCase(text.substr(0, contact.size()), contact) &&
           (text.size() == contact.size() || text[contact.size()] == L'.');
}

// What the rows read so far tell.
class Tally {
public:
    explicit Tally(const std::wstring& sought) : sought_(sought) {}

    void add(const TableBlock& block, std::size_t row)
    {
        onlyContacts_ = onlyContacts_ && isContact(block.cell(row, messageClassColumn));
        bool leavesItOpen = false;
        for (std::size_t field = 0; field < telephoneFields.size() && !leavesItOpen; ++field)
            leavesItOpen = mayBe(block.cell(row, field), sought_);
        if (leavesItOpen && ++candidates_ == 1) entryId_ = block.cell(row, entryIdColumn).text();
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
        const TableBlock rows(answer.table.get(L"GetArray", {block}));
        if (rows.rows() == 0) return false;
        for (std::size_t row = 0; row < rows.rows(); ++row) {
            tally.add(rows, row);
            if (tally.isUntold()) return false;
        }
        read += static_cast<std::int32_t>(rows.rows());
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
    if (!kept.areKept || !answer.table) return answer;
    if (kept.entries.empty()) kept.since = GetTickCount();
    kept.entries.push_back({sought, answer});
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

}
