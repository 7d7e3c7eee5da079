// The desk on which something goes wrong once: the real programs, with the
// same records before each trial.
#pragma once

#include "groupware.h"
#include "map_server.h"
#include "trial.h"
#include "verdict.h"

#include "support/processes.h"

#include <stdexcept>

namespace deaths {

class Stage {
public:
    // Installs and starts everything, and lets one synchronisation run without
    // a mishap. Throws std::runtime_error when even that leaves a deviation.
    explicit Stage(std::vector<const Groupware*> groupware);

    PartnerNumber partners() const { return partners_.size(); }
    const std::vector<PartnerCall>& callsOf(PartnerNumber partner) const { return partners_[partner].calls; }
    const Risk& riskOf(const Trial& trial) const { return partners_[trial.partner].risks[trial.call]; }

    // Hublink's own death outside the walks is tried everywhere, the rest by sample.
    bool isSampled(const Trial& trial) const
    {
        return trial.mishap != Mishap::hublinkDies || trial.after || riskOf(trial).inWalk;
    }

    // The mishap, what a user or the supervision does about it, and what is there
    // in the end. An attempt that breaks off, since a partner hangs or the machine
    // is too busy, is made once more: what happens again is no accident.
    Verdict run(const Trial& trial);

    std::wstring text(const Trial& trial) const;

private:
    struct Partner {
        std::vector<PartnerCall> calls;
        std::vector<Risk> risks;
    };

    const Groupware& groupware(PartnerNumber partner) const { return *groupware_[partner - 1]; }
    const wchar_t* nameOf(PartnerNumber partner) const;
    desk::player::Process& processOf(PartnerNumber partner);
    void reset();
    bool allAnswer();
    void renewServers();
    void learn();
    std::wstring ask(PartnerNumber partner, std::wstring_view request) const;
    void plan(const Trial& trial, const std::wstring& action);
    State stateOf(const Groupware& groupware) const;
    Permission permission(const Trial& trial, PartnerNumber partner) const;

    Verdict attempt(const Trial& trial);
    std::wstring whereAllStand();
    std::wstring lastCallOf(PartnerNumber partner) const;
    void killHublink(const Trial& trial);
    void killGroupware(const Trial& trial);
    void killSoftphone(const Trial& trial);
    void killMapServer(const Trial& trial);
    void answerBusy(const Trial& trial);
    void answerFailure(const Trial& trial);

    static constexpr DWORD timeout = 40'000; // milliseconds without a call to any partner

    // Throws std::runtime_error with `failure` when it does not hold.
    static void require(bool holds, const char* failure);

    // Waits for it; throws the same when it does not come, though no call to a
    // partner comes any more: a busy machine takes its time. It is not looked often:
    // the programs under trial are to have the processor.
    template <class Condition>
    void await(Condition condition, const char* failure)
    {
        std::wstring standing;
        for (DWORD start = GetTickCount(); !condition(); desk::player::waitFor(60)) {
            if (GetTickCount() - start <= timeout) continue;
            std::wstring stands = whereAllStand();
            if (stands == standing) throw std::runtime_error(failure);
            standing = std::move(stands);
            start = GetTickCount();
        }
    }

    void startAndWait();
    void startAndWaitForTheLog();
    void waitUntilServed();
    std::size_t softphoneCalls(std::wstring_view call); // "History.Count get"
    void expectLog(const Trial& trial);
    std::size_t endsLogged() const;

    // A map server may be left over, too.
    struct NewServers {
        NewServers()
        {
            support::killMapServers();
            support::forgetDeadServers();
        }
    };

    const NewServers servers_; // before the first class is asked for
    desk::player::Desk desk_;
    MapServer map_;
    const std::vector<const Groupware*> groupware_;
    std::vector<Partner> partners_;
    std::vector<State> whole_; // of each groupware
    std::vector<std::wstring> remarks_; // deviations met under way
    int trialsOfTheseServers_ = 0;
};

}
