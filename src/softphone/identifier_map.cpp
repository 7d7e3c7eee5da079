#include "softphone/identifier_map.h"

#include "common/error_trap.h"
#include "softphone/map_server.h"

#include <algorithm>

namespace hublink {

using automation::Object;
using automation::Value;

// Without a map the program goes on, its synchronisations end at their first
// record. The old object is let go only when the new one is there: the server
// would end between the two and read its whole store again.
void openIdentifierMap(SoftphoneSession& session)
{
    Object fresh;
    trapErrors([&] { fresh = createIdentifierMap(session.host); });
    session.hashID = fresh;
}

void closeIdentifierMap(const SoftphoneSession& session)
{
    const Object map = session.hashID;
    map.call(L"StopOrvelConvertId");
}

void insertId(const Object& map, const std::wstring& idAppli, const std::wstring& idOrvel, MapApplication application,
              MapCollection collection)
{
    map.call(L"InsertId",
             {idAppli, idOrvel, static_cast<std::int32_t>(application), static_cast<std::int32_t>(collection)});
}

std::wstring mappedId(const Object& map, const std::wstring& idOrvel, MapApplication application)
{
    // The server writes the identifier into a text of the caller's size.
    constexpr std::int32_t capacity = 1024;
    Value idAppli(std::wstring(capacity, L'\0'));
    Value length(capacity);
    const Value result =
        map.get(L"ConvertIdOrvel", {idOrvel, byRef(idAppli), byRef(length), static_cast<std::int32_t>(application)});
    if (result.int32() == 0) return L"";
    return idAppli.text().substr(0, static_cast<std::size_t>(std::max(length.int32(), std::int32_t{0})));
}

}
