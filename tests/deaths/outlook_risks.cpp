// What may happen when something goes wrong at one of Outlook's calls.
#include "outlook_mirror.h"
#include "softphone_records.h"

#include "outlook/telephone_fields.h"

#include <algorithm>
#include <utility>

namespace deaths {

namespace {

using Calls = std::vector<PartnerCall>;

bool isTelephoneField(const std::wstring& member)
{
    return std::any_of(std::begin(hublink::telephoneFields), std::end(hublink::telephoneFields),
                       [&](const wchar_t* field) { return member == std::wstring(L"ContactItem.") + field; });
}

// A step of the look through all contacts, by tables or one by one.
bool isWalk(const PartnerCall& call)
{
    return call.isOf(L"Table") || call.isOf(L"Columns") || call.member == L"Folder.GetTable" ||
           call.member == L"Items.GetFirst" || call.member == L"Items.GetNext" ||
           (isTelephoneField(call.member) && call.kind == L"get");
}

// A bulk reading that fails is followed by the walk one by one, and so is the contact
// that it named: nothing is lost by it.
bool isTable(const PartnerCall& call)
{
    return call.isOf(L"Table") || call.isOf(L"Columns") || call.member == L"Folder.GetTable" ||
           call.member == L"NameSpace.GetItemFromID";
}

// What is done with the items of a folder next: the first call of the class
// Items from there on.
std::wstring nextUseOfItems(const Calls& calls, std::size_t from)
{
    for (std::size_t index = from; index < calls.size(); ++index)
        if (calls[index].isOf(L"Items") && !calls[index].isLookUp()) return calls[index].member;
    return L"";
}

std::wstring soughtNumber(const std::wstring& filter)
{
    const std::size_t begin = filter.find(L'\'') + 1;
    return filter.substr(begin, filter.find(L'\'', begin) - begin);
}

// Follows which number is being looked for: from the moment when the items are
// fetched for a filter until the identifier of its contact is read, or new items are
// fetched for an addition, or something else than contacts is called.
class OutlookLookUps {
public:
    explicit OutlookLookUps(const Calls& calls) : calls_(calls) {}

    void at(std::size_t index, Risk& risk)
    {
        const PartnerCall& call = calls_[index];
        if (call.member == L"Folder.Items") {
            const std::wstring use = nextUseOfItems(calls_, index);
            if (use == L"Items.Find") number_ = nextFilter(index);
            if (use == L"Items.Add") made_ = std::exchange(number_, L"");
        } else if (call.isOf(L"Application") || call.isOf(L"JournalItem")) {
            number_.clear();
        }
        if (call.isOf(L"Application") || call.is(L"JournalItem.Subject", L"put")) made_.clear();
        if (call.member == L"NameSpace.GetItemFromID") isNamed_ = true;
        if (call.isOf(L"Items") || call.kind == L"put") isNamed_ = false;
        const bool isJudged = isNamed_ && isTelephoneField(call.member);
        if (!isTable(call) && !isJudged) risk.lookedFor = number_;
        if (!risk.beingCopied.empty()) risk.contactMadeFor = made_;
        if (call.is(L"ContactItem.EntryID", L"get")) number_.clear();
    }

private:
    std::wstring nextFilter(std::size_t from) const
    {
        while (!calls_[from].is(L"Items.Find", L"method")) ++from;
        return soughtNumber(calls_[from].arguments);
    }

    const Calls& calls_;
    std::wstring number_;
    bool isNamed_ = false; // a contact by the table, which is being judged
    std::wstring made_; // that of the contact being made
};

// Follows the journal item of a call, from its making on. It is open from the
// moment when it is saved until something follows its identifier.
class OpenJournalItems {
public:
    explicit OpenJournalItems(const Calls& calls) : calls_(calls)
    {
        for (const Call& call : deaths::calls())
            if (!call.isMirrored) waiting_.push_back(call.id);
    }

    void at(std::size_t index, Risk& risk)
    {
        const PartnerCall& call = calls_[index];
        const bool isIdentifier = call.member == L"JournalItem.EntryID";
        if (!open_.empty() && !isIdentifier) {
            open_.clear();
            copied_.clear();
        }
        if (call.is(L"Application.CreateItem", L"method") && isCall(nextSubject(index))) copied_ = waiting_.at(next_++);
        if (call.is(L"JournalItem.Subject", L"put")) hasSubject_ = isCall(call.arguments);
        risk.beingCopied = copied_;
        risk.openBefore = open_;
        if (hasSubject_ && call.is(L"JournalItem.Close", L"method")) {
            hasSubject_ = false;
            open_ = copied_;
        }
        risk.openAfter = open_;
    }

private:
    static bool isCall(const std::wstring& subject) { return subject.find(L"Connector Log") == std::wstring::npos; }

    std::wstring nextSubject(std::size_t from) const
    {
        while (!calls_.at(from).is(L"JournalItem.Subject", L"put")) ++from;
        return calls_[from].arguments;
    }

    const Calls& calls_;
    std::vector<std::wstring> waiting_; // the softphone's calls, in their order
    std::size_t next_ = 0;
    std::wstring copied_;               // the one whose item is being made
    bool hasSubject_ = false;           // that item has got its subject
    std::wstring open_;
};

}

std::vector<Risk> OutlookMirror::risks(const Calls& calls) const
{
    std::vector<Risk> risks(calls.size());
    OutlookLookUps lookUps(calls);
    OpenJournalItems openCalls(calls);
    for (std::size_t index = 0; index < calls.size(); ++index) {
        risks[index].inWalk = isWalk(calls[preparedBy(calls, index)]);
        openCalls.at(index, risks[index]);
        lookUps.at(index, risks[index]);
    }
    return risks;
}

}
