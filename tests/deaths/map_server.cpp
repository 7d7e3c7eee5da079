#include "map_server.h"

#include "automation/error.h"
#include "desk/player/screen.h"
#include "support/processes.h"

#include <stdexcept>

namespace deaths {

using automation::Object;
using automation::Value;

namespace {

// The service that knows the classes may just be starting anew.
Object newMap()
{
    for (int attempt = 0;; ++attempt) {
        try {
            return Object::create(L"PavexConvId.OrvelConvertId");
        } catch (const automation::AutomationError& error) {
            if (error.code() != REGDB_E_CLASSNOTREG || attempt == 20) throw;
            desk::player::waitFor(250);
        }
    }
}

}

MapServer::MapServer()
{
    const std::wstring program = std::wstring(desk::player::Desk::programFolder) + L"\\PavexConvId.exe";
    const desk::player::Process registration(program, L"/RegServer");
    if (!registration.ended(10'000) || registration.exitCode() != 0)
        throw std::runtime_error("the map server does not register");
    reopen();
}

void MapServer::reopen()
{
    enumerator_.reset();
    map_ = newMap();
    enumerator_.emplace(map_.get(L"idCollection", {std::int32_t{0}}).object());
    const std::vector<DWORD> running = support::processesNamed(L"PavexConvId.exe");
    if (running.size() != 1) throw std::runtime_error("there is not one map server");
    processId_ = running[0];
}

void MapServer::reset(const std::vector<MapRecord>& records)
{
    desk::player::Desk::emptyIdentifierMap();
    for (const MapRecord& record : records)
        map_.call(L"InsertId", {record.groupwareId, record.softphoneId, record.application, record.collection});
}

std::vector<MapRecord> MapServer::records(std::int32_t application) const
{
    std::vector<MapRecord> found;
    for (const std::int32_t collection : {0, 1}) {
        automation::Enumeration all(map_.get(L"idCollection", {collection}).object());
        Value element;
        while (all.next(element)) {
            const Object record = element.object();
            if (record.get(L"typApplication").int32() == application)
                found.push_back(
                    {record.get(L"idOrvel").text(), record.get(L"idAppli").text(), application, collection});
        }
    }
    return found;
}

bool MapServer::ended(DWORD milliseconds) const
{
    return desk::player::waitUntil([] { return support::processesNamed(L"PavexConvId.exe").empty(); }, milliseconds);
}

}
