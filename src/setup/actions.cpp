#include "setup/actions.h"

#include "setup/action_data.h"
#include "setup/first_settings.h"
#include "setup/installed_settings.h"
#include "setup/running_programs.h"

namespace hublink::setup {

namespace {

constexpr const wchar_t* folderEntry = L"folder";
constexpr const wchar_t* sessionsEntry = L"sessions";
constexpr const wchar_t* asInstalledEntry = L"as installed";

ActionData handedOver(const Package& package)
{
    return ActionData(package.property(L"CustomActionData"));
}

std::vector<DWORD> numbersIn(const std::wstring& text)
{
    std::vector<DWORD> numbers;
    for (std::size_t start = 0; start < text.size(); start = text.find(L' ', start) + 1) {
        numbers.push_back(wcstoul(text.c_str() + start, nullptr, 10));
        if (text.find(L' ', start) == std::wstring::npos) break;
    }
    return numbers;
}

}

void stop(const Package& package)
{
    const std::vector<DWORD> sessions = sessionsOfHublink();
    if (sessions.empty()) return;
    std::wstring list;
    for (const DWORD session : sessions) list += (list.empty() ? L"" : L" ") + std::to_wstring(session);
    package.log(L"it runs and is asked to stop; its sessions: " + list);
    if (!hublink::setup::stopHublink()) package.log(L"it has not stopped; its files are replaced at the next restart");
    ActionData data;
    data.add(folderEntry, package.property(L"INSTALLDIR"));
    data.add(sessionsEntry, list);
    for (const wchar_t* action : {L"StartHublink", L"StartHublinkAgain"}) package.setProperty(action, data.text());
}

void start(const Package& package)
{
    const ActionData data = handedOver(package);
    for (const DWORD session : numbersIn(data.value(sessionsEntry)))
        if (!startHublinkIn(session, data.value(folderEntry) + L"hublink.exe"))
            package.log(L"it is not started again in session " + std::to_wstring(session));
}

void collectSettings(const Package& package)
{
    ActionData data;
    data.add(folderEntry, package.property(L"INSTALLDIR"));
    data.add(asInstalledEntry, isAsInstalled(package.property(L"INSTALLDIR")) ? L"yes" : L"no");
    addGiven(package, data);
    for (const wchar_t* action : {L"WriteSettings", L"RemoveSettings"}) package.setProperty(action, data.text());
}

void writeSettings(const Package& package)
{
    const ActionData data = handedOver(package);
    installSettings(data.value(folderEntry), data.value(asInstalledEntry) == L"yes", data);
}

void removeSettings(const Package& package)
{
    removeSettings(handedOver(package).value(asInstalledEntry) == L"yes");
}

}
