// Outlook on the bench.
#pragma once

#include "desk/bench/groupware.h"
#include "desk/player/desk.h"

namespace desk::bench {

// In how many of a contact's telephone fields, in their order, one looks until the
// one that has the number of the contact at that place.
int fieldsUntilNumber(std::size_t place);

class OutlookGroupware final : public Groupware {
public:
    // `desk` outlives it.
    explicit OutlookGroupware(player::Desk& desk) noexcept : desk_(desk) {}

    const wchar_t* name() const override { return L"Outlook"; }
    const wchar_t* script() const override { return L"outlook.vbs"; }
    void start(const People& contacts) override;
    void load(const People& contacts) override;
    std::wstring ask(std::wstring_view request) override { return desk_.outlook(request); }
    int logLines(const std::wstring& ending) override;
    std::wstring mirrored() override;
    bool isOfWalk(const std::wstring& member) const override;
    unsigned long walked(const CallCounts& counts) const override;
    std::vector<NeededCalls> neededForSession() const override;

private:
    player::Desk& desk_;
};

}
