// Lotus Notes on the bench: a company's and a branch's book on a server, a
// personal one, the call history and the log. Each book has a view by number.
#pragma once

#include "desk/bench/groupware.h"
#include "desk/player/desk.h"

namespace desk::bench {

class NotesGroupware final : public Groupware {
public:
    // `desk` outlives it.
    explicit NotesGroupware(player::Desk& desk) noexcept : desk_(desk) {}

    const wchar_t* name() const override { return L"Notes"; }
    const wchar_t* script() const override { return L"notes.vbs"; }
    void start(const People& contacts) override; // in the personal book
    void load(const People& contacts) override;
    std::wstring ask(std::wstring_view request) override { return desk_.notes(request); }
    int logLines(const std::wstring& ending) override;
    std::wstring mirrored() override;
    bool isOfWalk(const std::wstring&) const override { return false; }
    unsigned long walked(const CallCounts&) const override { return 0; }
    std::vector<NeededCalls> neededForSession() const override;
    void configure() override;

    // As many persons in each of the books; the last one of the personal book
    // has the number `number`.
    void fillBooks(int persons, const std::string& number);

private:
    player::Desk& desk_;
};

}
