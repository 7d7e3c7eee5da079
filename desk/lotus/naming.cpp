#include "desk/lotus/naming.h"

#include "desk/common/text.h"

#include <stdexcept>

namespace desk::lotus {

SharedDatabase databaseNamed(const Notes& notes, const std::wstring& place)
{
    const std::size_t mark = place.find(L"!!");
    for (const SharedDatabase& each : notes.databases()) {
        const std::wstring server = mark == std::wstring::npos ? each->server : place.substr(0, mark);
        if (each->isAt(server, mark == std::wstring::npos ? place : place.substr(mark + 2))) return each;
    }
    throw std::runtime_error("there is no database \"" + utf8(place) + "\"");
}

std::wstring placeOf(const std::wstring& server, const std::wstring& filePath)
{
    return server.empty() ? filePath : server + L"!!" + filePath;
}

NamedDocument documentNamed(const Notes& notes, const std::wstring& id)
{
    const std::size_t mark = id.find(L'@');
    if (mark != std::wstring::npos) {
        const SharedDatabase database = databaseNamed(notes, id.substr(mark + 1));
        if (const SavedNote note = database->find(numberOf(L"0x" + id.substr(0, mark), "note ID")))
            return {database, note};
    }
    for (const SharedDatabase& each : notes.databases())
        if (const SavedNote note = each->findUniversal(id)) return {each, note};
    throw std::runtime_error("there is no document \"" + utf8(id) + "\"");
}

}
