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

bool inSoftphone(const Object& records, const std::wstring& id)
{
    const SoftphoneId wanted = softphoneIdFromText(id);
    return static_cast<bool>(records.get(softphone::records::byId, {wanted.IdHigh, wanted.IdLow}).object());
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

std::wstring softphoneIdOf(const Object& entry)
{
    const std::int32_t high = entry.get(L"IdHigh").int32();
    return textFromSoftphoneId({high, entry.get(L"IdLow").int32()});
}

std::wstring historyIdOf(const Object& item)
{
    const std::int32_t high = item.get(softphone::historyItem::idHigh).int32();
    return textFromSoftphoneId({high, item.get(softphone::historyItem::idLow).int32()});
}

bool PavexInterface::InPavexRepertory(const std::wstring& Id)
{
    bool exists = false;
    trapErrors(L"InPavexRepertory", [&] { exists = inSoftphone(adressbookPavex, Id); });
    return exists;
}

bool PavexInterface::InPavexHistorique(const std::wstring& Id)
{
    bool exists = false;
    trapErrors(L"InPavexHistorique", [&] { exists = inSoftphone(histo, Id); });
    return exists;
}

void PavexInterface::PurgeId()
{
    PurgeIdHistorique();
    PurgeIdRepertory();
}

void PavexInterface::PurgeIdRepertory()
{
    purge(L"PurgeIdRepertory", MapCollection::contacts,
          [this](const std::wstring& id) { return InPavexRepertory(id); });
}

void PavexInterface::PurgeIdHistorique()
{
    purge(L"PurgeIdHistorique", MapCollection::history,
          [this](const std::wstring& id) { return InPavexHistorique(id); });
}

void PavexInterface::purge(const wchar_t* procedure, MapCollection collection,
                           const std::function<bool(const std::wstring&)>& exists)
{
    trapErrors(procedure, [&] {
        const Object server = createIdentifierMap(host_);
        const automation::SharedNames names = automation::sharedNames();
        automation::Enumeration records(server.get(L"idCollection", {static_cast<std::int32_t>(collection)}).object());
        Value element;
        while (records.next(element)) {
            if (host_.configuration().gStop) return;
            const Object record = element.object().sharing(names);
            const std::wstring id = record.get(L"idOrvel").text();
            if (!exists(id)) server.call(L"RemoveIdOrvel", {id, record.get(L"typApplication").int32()});
        }
    });
}

void PavexInterface::adressbookPavex_OnRepertoryDeleteEntry(std::int32_t, std::int32_t) {}

void PavexInterface::histo_OnHistoricDeleteItem(std::int32_t, std::int32_t) {}
