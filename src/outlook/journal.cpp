#include "outlook/journal.h"

#include "common/call_type.h"
#include "common/error_trap.h"
#include "outlook/contact_lookup.h"
#include "outlook/contacts.h"

namespace hublink {

namespace {

using automation::Object;

// The other party of a call.
struct OtherParty : Party {
    bool contactKnown = false;
};

OtherParty resolveParty(OutlookSession& session, const SoftphoneHistoryItem& historyItem, const std::wstring& number,
                        bool createContact)
{
    const OutlookPerson known = FindOutlookContact(session, number);
    OtherParty party{{number, known.lastName, known.firstName}, !known.entryId.empty()};
    if (party.contactKnown) return party;
    party.lastName = historyItem.lastName();
    party.firstName = historyItem.firstName();
    if (createContact) party.contactKnown = !NewOutlookContact(session, party, Show::no).empty();
    return party;
}

std::wstring subjectFor(const OutlookSession& session, const Party& party)
{
    if (party.number.empty()) return unknownCallerText(session.dictionary);
    return party.firstName + L" " + party.lastName + L" (" + party.number + L")";
}

}

bool AddRecipient(OutlookSession& session, const Object& item, const std::wstring& lastName,
                  const std::wstring& firstName)
{
    bool added = false;
    trapErrors([&] {
        const Object recipients = item.get(L"Recipients").object().usingIdCache(session.idCaches.recipients);
        recipients.call(L"Add", {firstName + L" " + lastName});
        added = true;
    });
    return added;
}

std::wstring CreateOutlookHistoItem(OutlookSession& session, const SoftphoneHistoryItem& historyItem,
                                    bool createContact)
{
    std::wstring entryId;
    trapErrors([&] {
        const Object item = newOutlookItem(session, OutlookItemType::journal);
        const bool incoming = historyItem.incoming().isTrue();
        const std::wstring number = historyItem.number();
        const OtherParty party =
            number.empty() ? OtherParty{} : resolveParty(session, historyItem, number, createContact);
        item.put(L"Subject", (incoming ? L"* " : L"") + subjectFor(session, party));
        item.put(L"Start", historyItem.beginDate());
        item.put(L"End", historyItem.endDate());
        item.put(L"Type", L"Phone Call");
        if (!number.empty()) {
            if (party.contactKnown) AddRecipient(session, item, party.lastName, party.firstName);
            else AddRecipient(session, item, number, L"");
        }
        const std::wstring type =
            callTypeText(incoming, historyItem.state(), [&] { return historyItem.acknowledged(); });
        item.put(L"Body", TranslateCallType(type, session.dictionary));
        saveAndClose(item);
        entryId = item.get(L"EntryID").text();
    });
    return entryId;
}

}
