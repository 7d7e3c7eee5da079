// Outlook during the morning.
#pragma once

#include "desk/player/desk.h"
#include "desk/player/narrator.h"
#include "desk/player/side.h"

namespace desk::player {

class OutlookSide final : public Side {
public:
    OutlookSide(Desk& desk, Narrator& narrator) : desk_(desk), narrator_(narrator) {}

    std::wstring name() const override { return L"Outlook"; }
    void start() override;
    void close() override { desk_.closeOutlook(); }
    void reopen() override { desk_.startOutlook(); }
    std::wstring log() override { return desk_.logBody(); }
    void clear() override;
    std::wstring calls() override { return desk_.outlook(L"calls"); }
    bool showsNothing() override { return desk_.outlook(L"windows").empty(); }
    void expectSynchronised() override;
    void expectNothingTwice() override;
    void expectKnownCaller() override;
    void expectStranger() override;
    void expectMessage() override;
    void bringMessageToFront() override;
    void expectChangedMessage() override;
    void expectReadAgain() override;
    void editSetting() override;
    void playOwnSteps() override;

private:
    bool eachOnce();

    Desk& desk_;
    Narrator& narrator_;
    std::size_t contacts_ = 0; // that came in other ways than from the softphone's address book
};

}
