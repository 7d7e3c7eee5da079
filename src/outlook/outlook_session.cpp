#include "outlook/outlook_session.h"

namespace hublink {

using automation::Object;

// Each holds a reference of its own while it calls: the session's may be
// replaced meanwhile.

Object contactItems(const OutlookSession& session)
{
    const Object contacts = session.OutlookContacts;
    return contacts.get(L"Items").object().usingIdCache(session.idCaches.items);
}

Object newOutlookItem(const OutlookSession& session, OutlookItemType type)
{
    const Object outlook = session.OutlookApp;
    const Object item = outlook.get(L"CreateItem", {static_cast<std::int16_t>(type)}).object();
    return item.usingIdCache(type == OutlookItemType::mail ? session.idCaches.mail : session.idCaches.journalItem);
}

void saveAndClose(const Object& item)
{
    constexpr std::int16_t save = 0; // of the ways to close an item
    item.call(L"Close", {save});
}

}
