// The settings as the program itself reads them, by its own procedures. Nothing else of
// the program runs: no call goes to a groupware, nothing is written.
#pragma once

#include "common/configuration.h"
#include "common/ini_file.h"
#include "lotus/lotus_session.h"
#include "outlook/outlook_session.h"

#include <string>

namespace hublink::check {

class ProgramSettings {
public:
    // Nothing is read yet: no groupware is in use. `programFolder` is Hublink's own.
    explicit ProgramSettings(std::wstring programFolder) : programFolder_(std::move(programFolder)) {}

    void read(const std::wstring& iniFile);

    const Configuration& general() const noexcept { return general_; }
    const OutlookConfiguration& outlook() const noexcept { return outlook_; }
    const LotusConfiguration& lotus() const noexcept { return lotus_; }

    // Whether the reading came to its end, or an error ended it before.
    bool lotusIsWhole() const noexcept { return lotusIsWhole_; }

private:
    void readLotus(const IniFile& ini);

    std::wstring programFolder_;
    Configuration general_;
    OutlookConfiguration outlook_;
    LotusConfiguration lotus_;
    bool lotusIsWhole_ = true;
};

}
