#include "outlook/contact_table.h"

#include "automation/milliseconds.h"
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
constexpr std::size_t maxUncutLength = 127 - 1;
// MAPI_E_NOT_FOUND: the cell of a row whose item has no such field.
constexpr SCODE notFound = static_cast<SCODE>(0x8004010FL);
constexpr std::int32_t rowsPerBlock = 500;

// Adding a column takes longer when Outlook asks its user for permission.
constexpr automation::Milliseconds promptThreshold = 1'000;
// How long an answer may be used again.
constexpr automation::Milliseconds answerLifetime = 2'000;

// False when Outlook asked its user about one of them: it would ask about each of the others too.
bool addColumns(OutlookSession& session, const Object& columns)
{
    session.tablesAreGuarded = true; // unless all of them are taken without a question
    const auto add = [&](const wchar_t* name) {
        const DWORD start = GetTickCount();
        columns.call(L"Add", {name});
        return GetTickCount() - start <= promptThreshold;
    };
    const bool wasUnprompted =
        std::all_of(telephoneFields.begin(), telephoneFields.end(), add) && add(L"EntryID") && add(L"MessageClass");
    session.tablesAreGuarded = !wasUnprompted;
    return wasUnprompted;
}

// All items of the contacts folder; empty when Outlook guards its tables.
Object newTable(OutlookSession& session)
{
    const Object contacts = session.OutlookContacts;
    const Object table = contacts.get(L"GetTable").object().usingIdCache(session.idCaches.table);
    const Object columns = table.get(L"Columns").object().usingIdCache(session.idCaches.columns);
    columns.call(L"RemoveAll");
    return addColumns(session, columns) ? table : Object();
}

bool isMissing(const Value& cell)
{
    return cell.type() == VT_NULL || (cell.type() == VT_ERROR && V_ERROR(&cell.variant()) == notFound);
}

// Whether the field may hold the sought number.
bool mayEqual(const Value& cell, const std::wstring& sought)
{
    const std::wstring text = isMissing(cell) ? L"" : cell.text();
    const std::wstring stripped = StripPhoneNumber(text);
    return text.size() > maxUncutLength ? sought.starts_with(stripped) : stripped == sought;
}

// Whether the item is a contact, or one of a form made from it.
bool isContact(const Value& cell)
{
    static const std::wstring contact = L"IPM.Contact";
    if (cell.type() != VT_BSTR) return false;
    const std::wstring text = cell.text();
    return automation::equalIgnoringCase(text.substr(0, contact.size()), contact) &&
           (text.size() == contact.size() || text[contact.size()] == L'.');
}

// The rows, of those read so far, whose contact may have the number.
class CandidateRows {
public:
    explicit CandidateRows(const std::wstring& sought) : sought_(sought) {}

    void add(const TableBlock& block, std::size_t row)
    {
        onlyContacts_ = onlyContacts_ && isContact(block.cell(row, messageClassColumn));
        bool mayMatch = false;
        for (std::size_t field = 0; field < telephoneFields.size() && !mayMatch; ++field)
            mayMatch = mayEqual(block.cell(row, field), sought_);
        if (mayMatch && ++candidateCount_ == 1) entryId_ = block.cell(row, entryIdColumn).text();
    }

    // Whether further rows cannot help.
    bool isUndecided() const
    {
        return candidateCount_ > 1 || (candidateCount_ == 1 && (!onlyContacts_ || entryId_.empty()));
    }
    PossibleOwner owner() const { return candidateCount_ == 0 ? PossibleOwner::nobody : PossibleOwner::oneContact; }
    const std::wstring& entryId() const { return entryId_; }

private:
    const std::wstring& sought_;
    int candidateCount_ = 0;
    bool onlyContacts_ = true;
    std::wstring entryId_;
};

// Whether all rows were read, and they decide who has the number.
bool readRows(const TableAnswer& answer, CandidateRows& candidates)
{
    // Outlook 2007 refuses a block larger than the whole table.
    const std::int32_t blockSize = std::min(answer.rows, rowsPerBlock);
    std::int32_t read = 0;
    while (read < answer.rows) {
        const TableBlock block(answer.table.get(L"GetArray", {blockSize}));
        if (block.rows() == 0) return false;
        for (std::size_t row = 0; row < block.rows(); ++row) {
            candidates.add(block, row);
            if (candidates.isUndecided()) return false;
        }
        read += static_cast<std::int32_t>(block.rows());
    }
    // A table shows what comes while it is read: it may be longer by now.
    return answer.table.get(L"EndOfTable").isTrue();
}

// The table of the event, from its first row on again, or a new one.
Object openTable(OutlookSession& session)
{
    TableAnswerCache& cache = session.answerCache;
    if (!cache.entries.empty()) {
        const Object table = cache.entries.back().answer.table;
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
        CandidateRows candidates(sought);
        if (!readRows(answer, candidates)) return;
        answer.entryId = candidates.entryId();
        answer.owner = candidates.owner();
    });
    return answer;
}

}

TableAnswer findPossibleOwner(OutlookSession& session, const std::wstring& sought)
{
    TableAnswerCache& cache = session.answerCache;
    if (GetTickCount() - cache.startTick > answerLifetime) cache.entries.clear();
    const auto same = std::find_if(cache.entries.begin(), cache.entries.end(),
                                   [&](const TableAnswerCache::Entry& entry) { return entry.sought == sought; });
    if (same != cache.entries.end()) {
        const TableAnswer answer = same->answer;
        if (answer.owner == PossibleOwner::undecided || isStillValid(answer)) return answer;
        cache.entries.clear();
    }
    const TableAnswer answer = askTable(session, sought);
    if (!cache.isActive || !answer.table) return answer;
    if (cache.entries.empty()) cache.startTick = GetTickCount();
    cache.entries.push_back({sought, answer});
    return answer;
}

bool isStillValid(const TableAnswer& answer)
{
    bool holds = false;
    trapErrors([&] { holds = answer.table.get(L"GetRowCount").int32() == answer.rows; });
    return holds;
}

TableAnswerCacheScope::TableAnswerCacheScope(OutlookSession& session) : session_(session)
{
    session_.answerCache.isActive = true;
}

TableAnswerCacheScope::~TableAnswerCacheScope()
{
    session_.answerCache = TableAnswerCache();
}

}
