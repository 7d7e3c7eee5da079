#include "desk/player/desk.h"

#include "automation/error.h"
#include "automation/object.h"
#include "automation/text.h"
#include "desk/common/control_pipe.h"

#include <shlobj.h>

#include <algorithm>
#include <stdexcept>

namespace desk::player {

namespace {

constexpr const wchar_t* softphoneFile = L"pavex.exe";
constexpr const wchar_t* outlookFile = L"OUTLOOK.exe";
constexpr const wchar_t* softphoneName = L"pavex";
constexpr const wchar_t* outlookName = L"outlook";
constexpr DWORD patience = 20'000; // milliseconds, for a program to start or end

std::wstring partner(const wchar_t* file)
{
    return std::wstring(Desk::partnersFolder) + L"\\" + file;
}

std::wstring storeOf(std::wstring_view name)
{
    return std::wstring(Desk::partnersFolder) + L"\\" + std::wstring(name) + L".store.txt";
}

void installPartners()
{
    makeFolder(Desk::partnersFolder);
    for (const wchar_t* file : {softphoneFile, outlookFile}) {
        copyFile(ownFolder() + L"\\" + file, partner(file));
        const Process registration(partner(file), L"/RegServer");
        if (!registration.ended(patience) || registration.exitCode() != 0)
            throw std::runtime_error(automation::ansi(file) + " does not register");
    }
}

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

std::wstring asked(std::wstring_view name, std::wstring_view request)
{
    const std::wstring response = desk::ask(name, request);
    if (response.starts_with(L"error:"))
        throw std::runtime_error(automation::ansi(request) + ": " + automation::ansi(response));
    return response;
}

}

Desk::Desk()
{
    installPartners();
    installHublink();
    installSoftphoneSettings();
    emptyIdentifierMap();
}

Desk::~Desk()
{
    if (hublink_.running() && !stopHublink()) hublink_.kill();
    endPartner(outlook_, outlookName);
    endPartner(softphone_, softphoneName);
}

void Desk::emptyIdentifierMap()
{
    try {
        // A server that is left over from an earlier program keeps the file open.
        automation::Object::create(L"PavexConvId.OrvelConvertId").call(L"StopOrvelConvertId");
    } catch (const automation::AutomationError&) {
        // Not registered yet, or not running: the file is free.
    }
    wchar_t folder[MAX_PATH];
    if (SUCCEEDED(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder)))
        removeFile(std::wstring(folder) + L"\\Hublink\\identifiers.map");
}

Process Desk::startPartner(const wchar_t* file, std::wstring_view name)
{
    Process process(partner(file), L"");
    desk::ask(name, L"ping", patience);
    return process;
}

void Desk::endPartner(Process& process, std::wstring_view name)
{
    if (!process.running()) return;
    try {
        desk::ask(name, L"exit");
    } catch (const std::runtime_error&) {
        // It died, or hangs: it is ended below.
    }
    if (!process.ended(5000)) process.kill();
}

void Desk::startSoftphone(std::string_view records)
{
    writeFile(storeOf(softphoneName), records);
    reopenSoftphone();
}

void Desk::reopenSoftphone()
{
    softphone_ = startPartner(softphoneFile, softphoneName);
}

void Desk::startOutlook(std::string_view records)
{
    writeFile(storeOf(outlookName), records);
    startOutlook();
}

void Desk::startOutlook()
{
    outlook_ = startPartner(outlookFile, outlookName);
}

void Desk::closeOutlook()
{
    outlook(L"exit");
    if (!outlook_.ended(patience)) throw std::runtime_error("Outlook does not close");
}

void Desk::restartPartners()
{
    endPartner(outlook_, outlookName);
    endPartner(softphone_, softphoneName);
    reopenSoftphone();
    startOutlook();
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

std::wstring Desk::softphone(std::wstring_view request)
{
    return asked(softphoneName, request);
}

std::wstring Desk::outlook(std::wstring_view request)
{
    return asked(outlookName, request);
}

std::optional<StoreRecord> Desk::record(std::wstring_view list, const wchar_t* field, const std::wstring& value)
{
    for (const StoreRecord& candidate : parseStore(outlook(list))) {
        const std::wstring* text = candidate.find(field);
        if (text && *text == value) return candidate;
    }
    return std::nullopt;
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

bool Desk::outlookShows(const std::wstring& title)
{
    return waitUntil(
        [&] {
            const auto titles = windowTitles(outlook_.id());
            return std::find(titles.begin(), titles.end(), title) != titles.end();
        },
        patience);
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
        patience);
}

std::wstring Desk::iniFile() const
{
    return std::wstring(softphoneFolder) + L"\\Connector\\pavexconnector.ini";
}

void Desk::setIni(const char* section, const char* key, const char* value)
{
    if (!WritePrivateProfileStringA(section, key, value, automation::ansi(iniFile()).c_str()))
        throw std::runtime_error(std::string("cannot write ") + key + " into the ini file");
}

}
