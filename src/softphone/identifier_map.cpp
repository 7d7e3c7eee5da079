#include "softphone/identifier_map.h"

#include "automation/enumeration.h"
#include "common/error_trap.h"
#include "softphone/map_server.h"
#include "softphone/pavex_interface.h"
#include "softphone/softphone_members.h"

#include <algorithm>

using automation::Object;
using automation::Value;

namespace {

// What a look-up in the softphone told of a record. A failure tells nothing.
enum class Presence { unknown, there, gone };

Presence presenceOf(const Object& records, const std::wstring& id)
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
void requireAnswer(const Object& records)
{
    records.get(softphone::records::count);
}

}

void insertId(const Object& map, const std::wstring& idAppli, const std::wstring& idOrvel, MapApplication application,
              MapCollection collection)
{
    map.call(L"InsertId", {idAppli, idOrvel, static_cast<std::int32_t>(application),
                           static_cast<std::int32_t>(collection)});
}

std::wstring mappedId(const Object& map, const std::wstring& idOrvel, MapApplication application)
{
    // The server writes the identifier into a text of the caller's size.
    constexpr std::int32_t capacity = 1024;
    Value idAppli(std::wstring(capacity, L'\0'));
    Value length(capacity);
    const Value result = map.get(L"ConvertIdOrvel", {idOrvel, byRef(idAppli), byRef(length),
                                                     static_cast<std::int32_t>(application)});
    if (result.int32() == 0) return L"";
    return idAppli.text().substr(0, static_cast<std::size_t>(std::max(length.int32(), std::int32_t{0})));
}

bool PavexInterface::InPavexRepertory(const std::wstring& Id)
{
    return presenceOf(adressbookPavex, Id) == Presence::there;
}

bool PavexInterface::InPavexHistorique(const std::wstring& Id)
{
    return presenceOf(histo, Id) == Presence::there;
}

void PavexInterface::PurgeId()
{
    PurgeIdHistorique();
    PurgeIdRepertory();
}

void PavexInterface::PurgeIdRepertory()
{
    trapErrors([&] { purge(MapCollection::contacts, adressbookPavex); });
}

void PavexInterface::PurgeIdHistorique()
{
    trapErrors([&] { purge(MapCollection::history, histo); });
}

// Ends at the first sign that the softphone's list answers no more: what it has
// not reached stays mapped, a look-up that fails on its own counts as "gone".
void PavexInterface::purge(MapCollection collection, Object softphoneRecords)
{
    requireAnswer(softphoneRecords);
    const Object server = createIdentifierMap(host_);
    const automation::SharedNames names = automation::sharedNames();
    automation::Enumeration records(server.get(L"idCollection", {static_cast<std::int32_t>(collection)}).object());
    Value element;
    while (records.next(element)) {
        host_.letUserStop();
        if (host_.configuration().gStop) return;
        const Object record = element.object().sharing(names);
        const std::wstring id = record.get(L"idOrvel").text();
        const Presence presence = presenceOf(softphoneRecords, id);
        if (presence == Presence::there) continue;
        if (presence == Presence::unknown) requireAnswer(softphoneRecords);
        server.call(L"RemoveIdOrvel", {id, record.get(L"typApplication").int32()});
    }
}

void PavexInterface::adressbookPavex_OnRepertoryDeleteEntry(std::int32_t, std::int32_t) {}

void PavexInterface::histo_OnHistoricDeleteItem(std::int32_t, std::int32_t) {}
