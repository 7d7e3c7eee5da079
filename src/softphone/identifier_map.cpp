#include "softphone/identifier_map.h"

#include "automation/enumeration.h"
#include "automation/error.h"
#include "common/error_trap.h"
#include "softphone/pavex_interface.h"
#include "softphone/softphone_members.h"

#include <algorithm>

using automation::AutomationError;
using automation::Object;
using automation::Value;

namespace {

constexpr const wchar_t* progId = L"PavexConvId.OrvelConvertId";
constexpr DWORD registrationPatience = 10'000; // milliseconds

bool saysNotRegistered(HRESULT code)
{
    return code == REGDB_E_CLASSNOTREG || code == CO_E_CLASSSTRING ||
           code == HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND) || code == HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND);
}

// Whether the map server beside the program registered itself.
bool registerServer(const std::wstring& programFolder)
{
    const std::wstring program = programFolder + L"\\PavexConvId.exe";
    std::wstring command = L"\"" + program + L"\" /RegServer";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                        &process))
        return false;
    DWORD result = ERROR_TIMEOUT;
    if (WaitForSingleObject(process.hProcess, registrationPatience) == WAIT_OBJECT_0)
        GetExitCodeProcess(process.hProcess, &result);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return result == 0;
}

bool inSoftphone(const Object& records, const std::wstring& id)
{
    const SoftphoneId wanted = softphoneIdFromText(id);
    return static_cast<bool>(records.get(softphone::records::byId, {wanted.IdHigh, wanted.IdLow}).object());
}

}

Object createIdentifierMap(const Host& host)
try {
    return Object::create(progId);
} catch (const AutomationError& error) {
    if (!saysNotRegistered(error.code()) || !registerServer(host.programFolder())) throw;
    return Object::create(progId);
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
    purge(L"PurgeIdRepertory", 1, [this](const std::wstring& id) { return InPavexRepertory(id); });
}

void PavexInterface::PurgeIdHistorique()
{
    purge(L"PurgeIdHistorique", 0, [this](const std::wstring& id) { return InPavexHistorique(id); });
}

void PavexInterface::purge(const wchar_t* procedure, std::int32_t collection,
                           const std::function<bool(const std::wstring&)>& exists)
{
    trapErrors(procedure, [&] {
        const Object server = createIdentifierMap(host_);
        const automation::SharedNames names = automation::sharedNames();
        automation::Enumeration records(server.get(L"idCollection", {collection}).object());
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
