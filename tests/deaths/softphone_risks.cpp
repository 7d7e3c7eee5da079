#include "softphone_risks.h"

#include "softphone_records.h"

#include "desk/common/text.h"

#include <map>
#include <set>

namespace deaths {

namespace {

using Calls = std::vector<PartnerCall>;

constexpr const wchar_t* entriesFail = L"Pb In Repertory Synchronisation";
constexpr const wchar_t* callsFail = L"Pb in History Synchronisation";

// "I4 2, I4 11" is the identifier 2.11.
std::wstring identifierOf(const PartnerCall& find)
{
    std::wstring_view rest = find.arguments;
    std::wstring high;
    std::wstring low;
    desk::takeWord(rest);
    high = desk::takeWord(rest);
    desk::takeWord(rest);
    low = desk::takeWord(rest);
    return high.substr(0, high.find(L',')) + L"." + low;
}

std::size_t indexOf(const PartnerCall& item)
{
    std::wstring_view rest = item.arguments;
    desk::takeWord(rest);
    return desk::numberOf(desk::takeWord(rest), "index of an item");
}

// Where a call stands within the attachment, and within the record being mirrored.
class Place {
public:
    explicit Place(const Calls& calls) : calls_(calls) {}

    void at(std::size_t index, Risk& risk)
    {
        const PartnerCall& call = calls_[preparedBy(calls_, index)];
        if (!calls_[index].isLookUp()) enter(call);
        if (call.isOf(L"Application") || call.isOf(L"User") || call.isOf(L"Line")) attach(call, risk);
        else if (call.member == L"History.Find") risk.unmappedByFailure = identifierOf(call);
        else if (asksBeforeThePurge(call)) return;
        else if (call.isOf(L"AddressBook") && call.member != L"AddressBook.Find") risk.failureLines = {entriesFail};
        else if (call.isOf(L"History")) risk.failureLines = {callsFail};
        else if (call.isOf(L"Entry")) readEntry(index, call, risk);
        else if (call.isOf(L"HistoryItem")) readCall(index, call, risk);
    }

private:
    void enter(const PartnerCall& call)
    {
        if (call.member == L"AddressBook.Item" || call.member == L"History.Item") reads_.clear();
        if (call.member == L"History.Item") current_ = deaths::calls().at(indexOf(call)).id;
    }

    // Whatever fails here ends the attachment: what comes later stays out of reach.
    void attach(const PartnerCall& call, Risk& risk)
    {
        risk.failureLines = {entriesFail};
        if (call.member != L"Application.AddressBook") risk.failureLines.insert(callsFail);
    }

    // Each list is asked for its count twice: before it is purged and before it is
    // walked. Without the first answer it is not purged, and nothing is logged.
    bool asksBeforeThePurge(const PartnerCall& call)
    {
        return call.member.ends_with(L".Count") && counted_.insert(call.member).second;
    }

    // What is read for the first time serves the loop, for the second time the
    // creation of the contact and its insertion into the map.
    int timesRead(std::size_t index, const PartnerCall& call)
    {
        const int before = reads_[call.member];
        if (!calls_[index].isLookUp()) ++reads_[call.member];
        return before;
    }

    void readEntry(std::size_t index, const PartnerCall& call, Risk& risk)
    {
        if (timesRead(index, call) == 0) risk.failureLines = {entriesFail};
    }

    void readCall(std::size_t index, const PartnerCall& call, Risk& risk)
    {
        const bool isIdentifier = call.member == L"HistoryItem.IdHigh" || call.member == L"HistoryItem.IdLow";
        if (isIdentifier && timesRead(index, call) == 0) {
            risk.failureLines = {callsFail};
            return;
        }
        risk.beingCopied = current_;
        if (isIdentifier) risk.openBefore = risk.openAfter = current_;
    }

    const Calls& calls_;
    std::set<std::wstring> counted_;
    std::map<std::wstring, int> reads_; // of the record being mirrored
    std::wstring current_;              // identifier of the call being mirrored
};

}

std::vector<Risk> softphoneRisks(const Calls& calls)
{
    std::vector<Risk> risks(calls.size());
    Place place(calls);
    for (std::size_t index = 0; index < calls.size(); ++index) place.at(index, risks[index]);
    return risks;
}

}
