// The custom actions as Windows Installer calls them, by the names in setup.def.
#include "automation/catch_all.h"
#include "automation/text.h"
#include "setup/actions.h"

#include <exception>

namespace {

using hublink::setup::Package;

// A failure is written to the log and undoes the installation.
template <class Action>
UINT carryOut(MSIHANDLE handle, Action action) noexcept
{
    const Package package(handle);
    return automation::catchAll<UINT>(ERROR_INSTALL_FAILURE, [&]() -> UINT {
        try {
            action(package);
            return ERROR_SUCCESS;
        } catch (const std::exception& error) {
            package.log(automation::toWide(error.what()));
            return ERROR_INSTALL_FAILURE;
        }
    });
}

}

extern "C" {

UINT __stdcall StopHublink(MSIHANDLE);
UINT __stdcall EndMapServer(MSIHANDLE);
UINT __stdcall StartHublink(MSIHANDLE);
UINT __stdcall CollectSettings(MSIHANDLE);
UINT __stdcall WriteSettings(MSIHANDLE);
UINT __stdcall RemoveSettings(MSIHANDLE);

UINT __stdcall StopHublink(MSIHANDLE handle)
{
    return carryOut(handle, hublink::setup::stop);
}

UINT __stdcall EndMapServer(MSIHANDLE handle)
{
    return carryOut(handle, hublink::setup::endMapServer);
}

UINT __stdcall StartHublink(MSIHANDLE handle)
{
    return carryOut(handle, hublink::setup::start);
}

UINT __stdcall CollectSettings(MSIHANDLE handle)
{
    return carryOut(handle, hublink::setup::collectSettings);
}

UINT __stdcall WriteSettings(MSIHANDLE handle)
{
    return carryOut(handle, hublink::setup::writeSettings);
}

UINT __stdcall RemoveSettings(MSIHANDLE handle)
{
    return carryOut(handle, static_cast<void (*)(const Package&)>(hublink::setup::removeSettings));
}
}
