// Outlook in the sweep.
#pragma once

#include "groupware.h"

namespace deaths {

class OutlookMirror final : public Groupware {
public:
    const char* iniName() const override { return "OUTLOOK"; }
    const wchar_t* partner() const override { return L"outlook"; }
    std::int32_t mapApplication() const override { return 0; }
    desk::player::Process& process(desk::player::Desk& desk) const override { return desk.outlookProcess(); }
    void reopen(desk::player::Desk& desk) const override { desk.startOutlook(); }

    std::wstring startingRecords() const override;
    std::vector<MapRecord> startingMap() const override;
    std::vector<Mirror> contacts() const override;
    std::vector<Mirror> calls() const override;
    std::vector<std::wstring> logLines() const override;
    std::vector<Risk> risks(const std::vector<PartnerCall>& calls) const override;
};

}
