// Lotus Notes during the morning.
#pragma once

#include "desk/player/desk.h"
#include "desk/player/narrator.h"
#include "desk/player/side.h"

namespace desk::player {

class NotesSide final : public Side {
public:
    NotesSide(Desk& desk, Narrator& narrator) : desk_(desk), narrator_(narrator) {}

    std::wstring name() const override { return L"Notes"; }
    void start() override;
    void close() override { desk_.closeNotes(); }
    void reopen() override { desk_.startNotes(); }
    std::wstring log() override;
    void clear() override;
    std::wstring calls() override { return desk_.notes(L"calls"); }
    bool showsNothing() override { return desk_.notes(L"windows").empty(); }
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
    std::size_t count(const wchar_t* database, const wchar_t* form);
    bool opens(const std::wstring& title, const wchar_t* mode);
    void readMail();
    void readLog();

    Desk& desk_;
    Narrator& narrator_;
};

}
