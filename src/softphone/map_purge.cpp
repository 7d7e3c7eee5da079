#include "softphone/map_purge.h"

#include "automation/enumeration.h"
#include "common/configuration.h"
#include "common/error_trap.h"
#include "common/softphone_id.h"
#include "softphone/identifier_map.h"
#include "softphone/map_server.h"
#include "softphone/softphone_members.h"

namespace hublink {

namespace {

using automation::Object;
using automation::Value;

// What a look-up in the softphone showed about a record: a failed one nothing.
enum class Presence { unknown, there, gone };

Presence lookUpPresence(const Object& records, const std::wstring& id)
{
    Presence presence = Presence::unknown;
    trapErrors([&] {
        const SoftphoneId wanted = softphoneIdFromText(id);
        const Value found = records.get(softphone::records::byId, {wanted.IdHigh, wanted.IdLow});
        presence = found.object() ? Presence::there : Presence::gone;
    });
    return presence;
}

// A softphone that is not reached, is left or is being upgraded has not lost its
// records. Throws AutomationError when the list does not answer.
void requireReachable(const Object& records)
{
    records.get(softphone::records::count);
}

// Ends at the first sign that the softphone's list answers no more: what it has
// not reached stays mapped, a look-up that fails on its own counts as "gone".
void purge(const SoftphoneSession& session, MapCollection collection, const Object softphoneRecords)
{
    requireReachable(softphoneRecords);
    const Object server = createIdentifierMap(session.host);
    const automation::SharedIdCache idCache = automation::makeIdCache();
    automation::Enumeration records(server.get(L"idCollection", {static_cast<std::int32_t>(collection)}).object());
    Value element;
    while (records.next(element)) {
        session.host.checkForStopRequest();
        if (session.host.configuration().gStop) return;
        const Object record = element.object().usingIdCache(idCache);
        const std::wstring id = record.get(L"idOrvel").text();
        const Presence presence = lookUpPresence(softphoneRecords, id);
        if (presence == Presence::there) continue;
        if (presence == Presence::unknown) requireReachable(softphoneRecords);
        server.call(L"RemoveIdOrvel", {id, record.get(L"typApplication").int32()});
    }
}

}

bool InPavexRepertory(const SoftphoneSession& session, const std::wstring& id)
{
    return lookUpPresence(session.adressbookPavex, id) == Presence::there;
}

bool InPavexHistorique(const SoftphoneSession& session, const std::wstring& id)
{
    return lookUpPresence(session.histo, id) == Presence::there;
}

void PurgeId(SoftphoneSession& session)
{
    PurgeIdHistorique(session);
    PurgeIdRepertory(session);
}

void PurgeIdRepertory(SoftphoneSession& session)
{
    trapErrors([&] { purge(session, MapCollection::contacts, session.adressbookPavex); });
}

void PurgeIdHistorique(SoftphoneSession& session)
{
    trapErrors([&] { purge(session, MapCollection::history, session.histo); });
}

}
