#include "desk/player/desk.h"

#include "automation/error.h"
#include "automation/object.h"
#include "automation/text.h"

#include <shlobj.h>

#include <stdexcept>
#include <vector>

namespace desk::player {

namespace {

constexpr DWORD programTimeout = 20'000; // milliseconds, for a program to start or end

void installHublink()
{
    const std::wstring to = Desk::programFolder;
    makeFolder(to);
    for (const wchar_t* file : {L"\\hublink.exe", L"\\PavexConvId.exe", L"\\pavexconnector.ini"})
        copyFile(ownFolder() + file, to + file);
    copyFolder(ownFolder() + L"\\dictionary", to + L"\\dictionary");
}

void installSoftphoneSettings()
{
    makeFolder(std::wstring(Desk::softphoneFolder) + L"\\Connector");
    removeFile(std::wstring(Desk::softphoneFolder) + L"\\Connector\\pavexconnector.ini");
    setRegistryText(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\Pavex.exe", L"Path",
                    Desk::softphoneFolder);
    setRegistryText(HKEY_CURRENT_USER, L"Software\\Orvel\\Pavex\\Name", L"HostZRB", L"pbx.example");
    setRegistryText(HKEY_CURRENT_USER, L"Software\\Orvel\\Pavex\\Name", L"Man", L"anna");
}

std::optional<StoreRecord> firstRecord(const std::wstring& store, const wchar_t* field, const std::wstring& value)
{
    for (const StoreRecord& candidate : parseStore(store)) {
        const std::wstring* text = candidate.find(field);
        if (text && *text == value) return candidate;
    }
    return std::nullopt;
}

void writeSetting(const std::wstring& file, const char* section, const char* key, const char* value)
{
    if (!WritePrivateProfileStringA(section, key, value, automation::toAnsi(file).c_str()))
        throw std::runtime_error(std::string("cannot write ") + key + " into " + automation::toAnsi(file));
}

}

Desk::Desk()
{
    for (PartnerProgram* partner : {&softphone_, &outlook_, &notes_}) partner->install();
    installHublink();
    installSoftphoneSettings();
    emptyIdentifierMap();
}

Desk::~Desk()
{
    if (hublink_.running() && !stopHublink()) hublink_.kill();
    for (PartnerProgram* partner : {&notes_, &outlook_, &softphone_}) partner->end();
}

std::wstring Desk::identifierMapFile()
{
    wchar_t folder[MAX_PATH];
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder)))
        throw std::runtime_error("there is no folder for application data");
    return std::wstring(folder) + L"\\Hublink\\identifiers.map";
}

void Desk::emptyIdentifierMap()
{
    try {
        // A server that is left over from an earlier program keeps the file open.
        automation::Object::create(L"PavexConvId.OrvelConvertId").call(L"StopOrvelConvertId");
    } catch (const automation::AutomationError&) {
        // Not registered yet, or not running: the file is free.
    }
    removeFile(identifierMapFile());
}

void Desk::restartPartners(const std::function<void()>& meanwhile)
{
    std::vector<PartnerProgram*> closed;
    for (PartnerProgram* partner : {&notes_, &outlook_, &softphone_}) {
        if (!partner->process().running()) continue;
        partner->end();
        closed.push_back(partner);
    }
    meanwhile();
    for (PartnerProgram* partner : closed) partner->start();
}

void Desk::startHublink()
{
    startHublink([] {});
}

void Desk::startHublink(const std::function<void()>& beforeItBegins)
{
    hublink_ = Process::suspended(std::wstring(programFolder) + L"\\hublink.exe", L"");
    beforeItBegins();
    hublink_.resume();
}

std::optional<StoreRecord> Desk::record(std::wstring_view list, const wchar_t* field, const std::wstring& value)
{
    return firstRecord(outlook(list), field, value);
}

std::optional<StoreRecord> Desk::document(std::wstring_view database, const wchar_t* item, const std::wstring& value)
{
    return firstRecord(notes(L"documents " + std::wstring(database)), item, value);
}

std::wstring Desk::logBody()
{
    const auto log = record(L"journal", L"Subject", L"Connector Log");
    const std::wstring* body = log ? log->find(L"Body") : nullptr;
    return body ? *body : L"";
}

bool Desk::logHolds(const std::wstring& line)
{
    return (logBody() + L"\n").find(L" " + line + L"\n") != std::wstring::npos;
}

void Desk::tick()
{
    if (const HWND form = FindWindowW(L"Hublink", nullptr)) PostMessageW(form, WM_TIMER, 1, 0);
}

bool Desk::stopHublink()
{
    if (const HWND form = FindWindowW(L"Hublink", nullptr)) PostMessageW(form, WM_CLOSE, 0, 0);
    // A map server that is missing costs the first tick; a box may wait for an answer.
    return waitUntil(
        [&] {
            tick();
            for (const MessageBoxSeen& box : messageBoxes(L"Hublink")) answer(box, IDOK);
            return hublink_.ended(100);
        },
        programTimeout);
}

std::wstring Desk::iniFile() const
{
    return std::wstring(softphoneFolder) + L"\\Connector\\pavexconnector.ini";
}

void Desk::setIni(const char* section, const char* key, const char* value)
{
    writeSetting(iniFile(), section, key, value);
}

void Desk::setDefault(const char* section, const char* key, const char* value)
{
    writeSetting(std::wstring(programFolder) + L"\\pavexconnector.ini", section, key, value);
}

}
