// Lotus Notes in the sweep.
#pragma once

#include "groupware.h"

namespace deaths {

class NotesMirror final : public Groupware {
public:
    const char* iniName() const override { return "LOTUS"; }
    std::string iniSections() const override;
    const wchar_t* partner() const override { return L"nlnotes"; }
    std::int32_t mapApplication() const override { return 1; }
    desk::player::Process& process(desk::player::Desk& desk) const override { return desk.notesProcess(); }
    void reopen(desk::player::Desk& desk) const override;
    bool makesContactsOfCallers() const override { return false; }
    bool comesBackByItself() const override { return false; }

    std::wstring startingRecords() const override;
    std::vector<MapRecord> startingMap() const override;
    std::vector<Mirror> contacts() const override;
    std::vector<Mirror> calls() const override;
    std::vector<std::wstring> logLines() const override;
    std::vector<Risk> risks(const std::vector<PartnerCall>& calls) const override;
};

}
