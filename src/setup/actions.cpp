#include "setup/actions.h"

#include "common/program_files.h"
#include "setup/action_data.h"
#include "setup/first_settings.h"
#include "setup/installed_settings.h"
#include "setup/running_programs.h"

namespace hublink::setup {

namespace {

constexpr const wchar_t* yes = L"yes";
constexpr const wchar_t* folderEntry = L"folder";
constexpr const wchar_t* sessionEntry = L"session";
constexpr const wchar_t* asInstalledEntry = L"as installed";
constexpr const wchar_t* otherVersionEntry = L"other version";

ActionData dataOfEarlierAction(const Package& package)
{
    return ActionData(package.property(L"CustomActionData"));
}

}

void stop(const Package& package)
{
    if (!isHublinkRunning()) return;
    const std::vector<DWORD> sessions = sessionsOfHublink();
    package.log(L"it runs and is asked to stop");
    if (!stopHublink()) package.log(L"it has not stopped: its files are replaced when the computer restarts");
    ActionData data;
    data.add(folderEntry, package.property(L"INSTALLDIR"));
    for (const DWORD session : sessions) data.add(sessionEntry, std::to_wstring(session));
    for (const wchar_t* action : {L"StartHublink", L"StartHublinkAgain"}) package.setProperty(action, data.text());
}

void endMapServer(const Package& package)
{
    if (!endMapServers()) package.log(L"a map server runs on: its file is replaced when the computer restarts");
}

void start(const Package& package)
{
    const ActionData data = dataOfEarlierAction(package);
    for (const std::wstring& session : data.values(sessionEntry))
        if (!startHublinkIn(std::stoul(session), data.value(folderEntry) + hublinkProgram))
            package.log(L"it is not started again in session " + session);
}

void collectSettings(const Package& package)
{
    ActionData data;
    data.add(folderEntry, package.property(L"INSTALLDIR"));
    data.add(asInstalledEntry, isAsInstalled(package.property(L"INSTALLDIR")) ? yes : L"no");
    data.add(otherVersionEntry, package.hasOtherVersion() ? yes : L"no");
    addGiven(package, data);
    for (const wchar_t* action : {L"WriteSettings", L"RemoveSettings"}) package.setProperty(action, data.text());
}

void writeSettings(const Package& package)
{
    const ActionData data = dataOfEarlierAction(package);
    installSettings(data.value(folderEntry), data.value(asInstalledEntry) == yes, data);
}

void removeSettings(const Package& package)
{
    const ActionData data = dataOfEarlierAction(package);
    if (data.value(otherVersionEntry) != yes) removeSettings(data.value(asInstalledEntry) == yes);
}

}
