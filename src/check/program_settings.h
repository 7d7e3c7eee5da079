// The settings as the program itself reads them, by its own procedures. Nothing else of
// the program runs: no call goes to a groupware, nothing is registered.
#pragma once

#include "common/configuration.h"
#include "common/dictionary.h"
#include "common/groupware_state.h"
#include "common/host.h"
#include "lotus/lotus_session.h"
#include "outlook/outlook_session.h"

#include <string>

namespace hublink::check {

// Stands for the program where its procedures ask for it.
class ReadingHost final : public Host {
public:
    void WriteLog(const std::wstring&) override {}
    void StopConnector() override {}
    const Configuration& configuration() const override { return read; }
    void enableSupervision() override {}
    void showMessage(const std::wstring&) override {}
    void pause(std::int32_t) override {}
    void letUserStop() override {}
    DATE now() const override { return 0; }
    std::wstring programFolder() const override { return folder; }
    void defer(std::function<void()>) override {}

    // The softphone's folder stays empty: without it Outlook's settings are read and
    // the client extension is not registered.
    Configuration read;
    std::wstring folder;
};

class ProgramSettings {
public:
    // Nothing is read yet: no groupware is in use. `programFolder` is Hublink's own.
    explicit ProgramSettings(const std::wstring& programFolder);
    ProgramSettings(const ProgramSettings&) = delete;
    ProgramSettings& operator=(const ProgramSettings&) = delete;

    void read(const std::wstring& iniFile);

    const Configuration& general() const noexcept { return host_.read; }
    const OutlookSession& outlook() const noexcept { return outlook_; }
    const LotusSession& lotus() const noexcept { return lotus_; }

    // Whether the reading came to its end, or an error ended it before.
    bool lotusIsWhole() const noexcept { return lotusIsWhole_; }

private:
    void readLotus();

    ReadingHost host_;
    GroupwareState groupware_;
    Dictionary dictionary_;
    OutlookSession outlook_;
    LotusSession lotus_;
    bool lotusIsWhole_ = true;
};

}
