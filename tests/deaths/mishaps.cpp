// What goes wrong, and what a user or the supervision does about it.
#include "stage.h"

#include "support/processes.h"

#include <algorithm>

namespace deaths {

void Stage::killHublink(const Trial& trial)
{
    desk_.startHublink([&] {
        plan(trial, L"kill " + std::to_wstring(desk_.hublinkProcess().id()) + (trial.after ? L"" : L" instead"));
    });
    await([&] { return desk_.hublinkProcess().ended(0); }, "Hublink does not die: the call does not come");
    startAndWait();
}

// The tick between the two sees that it is gone, the one after it that it is back.
void Stage::killGroupware(const Trial& trial)
{
    const Groupware& dying = groupware(trial.partner);
    plan(trial, L"die");
    desk_.startHublink();
    await([&] { return dying.process(desk_).ended(0); }, "the groupware does not die: the call does not come");
    waitUntilServed();
    desk_.tick();
    waitUntilServed();
    dying.reopen(desk_);
    desk_.tick();
    waitUntilServed();
    if (dying.comesBackByItself()) return;
    require(desk_.stopHublink(), "Hublink cannot be stopped");
    startAndWait();
}

// Hublink ends with its softphone; both are started again.
void Stage::killSoftphone(const Trial& trial)
{
    plan(trial, L"die");
    desk_.startHublink();
    await([&] { return desk_.softphoneProcess().ended(0); }, "the softphone does not die: the call does not come");
    const auto endsAtATick = [&] {
        desk_.tick();
        return desk_.hublinkProcess().ended(20);
    };
    await(endsAtATick, "Hublink does not end with its softphone");
    desk_.reopenSoftphone();
    startAndWait();
}

void Stage::killMapServer(const Trial& trial)
{
    plan(trial, L"kill " + std::to_wstring(map_.processId()));
    desk_.startHublink();
    await([&] { return map_.ended(0); }, "the map server does not die: the call does not come");
    waitUntilServed();
    require(desk_.stopHublink(), "Hublink cannot be stopped");
    desk_.restartPartners(support::forgetDeadServers);
    map_.reopen();
    startAndWait();
}

void Stage::answerBusy(const Trial& trial)
{
    plan(trial, L"busy 1");
    startAndWait();
    for (PartnerNumber partner = 1; partner < partners(); ++partner)
        if (groupware(partner).logLines() != whole_[partner - 1].log) remarks_.emplace_back(L"the log is another one");
}

void Stage::answerFailure(const Trial& trial)
{
    plan(trial, L"fail 0x80004005");
    // A failing softphone may not be subscribed to, a failing groupware may not
    // take the last line of the log.
    if (trial.partner == softphone) {
        startAndWaitForTheLog();
    } else {
        const std::size_t attached = softphoneCalls(L"Application.AddressBook get");
        desk_.startHublink();
        // It subscribes to the line before it asks for the address book.
        await([&] { return softphoneCalls(L"Application.AddressBook get") > attached; },
              "Hublink does not attach to the softphone");
        waitUntilServed();
    }
    expectLog(trial);
    require(desk_.stopHublink(), "Hublink cannot be stopped");
    startAndWait();
}

void Stage::expectLog(const Trial& trial)
{
    for (const Groupware* each : groupware_) {
        const std::vector<std::wstring> lines = each->logLines();
        for (const wchar_t* line : {L"Pb In Repertory Synchronisation", L"Pb in History Synchronisation"}) {
            const auto logged = std::count(lines.begin(), lines.end(), line);
            const std::size_t expected = riskOf(trial).failureLines.count(line);
            if (static_cast<std::size_t>(logged) != expected)
                remarks_.push_back(std::to_wstring(logged) + L" times in the log: " + line);
        }
    }
}

}
