#include "shell/hublink.h"

#include "automation/conversion.h"
#include "common/error_trap.h"
#include "common/installation.h"
#include "common/trace.h"
#include "lotus/initialisation.h"
#include "lotus/log_document.h"
#include "outlook/log_item.h"

#include <cmath>
#include <utility>

namespace hublink {

namespace {

std::wstring logFileOfToday(const std::wstring& softphoneFolder, DATE now)
{
    return softphoneFolder + L"\\ConnectorId\\log\\log" + automation::textFromDate(std::floor(now)) + L".log";
}

}

Hublink::Hublink(Desktop desktop, CallWatch::Times callTimes)
    : desktop_(std::move(desktop)), shutdown_(desktop_, configuration_, window_, softphone_, icon_, callTimes)
{}

void Hublink::Form_Load()
{
    trapErrors([&] {
        groupware_.nbInitFailure = 0;
        requireLotusInitialisation(lotus_);
        supervision_.initProcessHandle();
        readInstallation(configuration_);
        const std::wstring& folder = configuration_.szPathPavex;
        if (!folder.empty()) configuration_.szPathLogFile = logFileOfToday(folder, now());
        icon_.AddTrayIcon();
        shutdown_.watchCalls();
        ini_.install(desktop_.programFolder);
        ini_.ReadConnectorIni();
        gPavexInterface.Class_Initialize();
    });
}

void Hublink::WriteLog(const std::wstring& line) noexcept
{
    trapErrors([&] {
        if (lotus_.LotusReady) WriteLotusLog(lotus_, line);
        if (outlook_.bOutlookInit) LogToOutlookJournal(outlook_, line);
        showTrace(*this, line);
    });
}

void Hublink::StopConnector() noexcept
{
    trapErrors([&] { shutdown_.StopConnector(); });
}

// 0 when it cannot be shown.
int Hublink::messageBox(const std::wstring& text, UINT flags)
{
    return shutdown_.sessionIsEnding() ? 0 : desktop_.messageBox(text, flags);
}

void Hublink::pause(std::int32_t milliseconds)
{
    if (milliseconds > 0) Sleep(static_cast<DWORD>(milliseconds));
}

void Hublink::checkForStopRequest() noexcept
{
    trapErrors([&] {
        window_.dispatchStopMessages();
        if (!configuration_.gStop) ini_.stopIfFileSaysSo();
    });
}

void Hublink::onLongCallNoticed()
{
    if (!shutdown_.isHeldUpByCall()) return; // it is over, and another one is out
    checkForStopRequest();
    question_.ask();
}

DATE Hublink::now() const
{
    return automation::now();
}

}
