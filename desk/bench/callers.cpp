#include "desk/bench/callers.h"

#include "automation/text.h"
#include "desk/bench/outlook_groupware.h"
#include "desk/bench/people.h"
#include "desk/bench/run.h"

#include <cmath>
#include <stdexcept>
#include <vector>

namespace desk::bench {

namespace {

constexpr int contactCounts[] = {100, 1'000, 10'000};
constexpr int scriptedCounts[] = {100, 400}; // the script's other figures follow from these
constexpr int walkedContacts = 1'000;

class Callers {
public:
    Callers(player::Desk& desk, Report& report)
        : desk_(desk), report_(report), outlook_(desk), runner_(desk, outlook_, report),
          number_(automation::wide(strangersNumber()))
    {
    }

    void measure()
    {
        runner_.startPartners();
        strangers();
        walk();
    }

private:
    void strangers()
    {
        runner_.configure(true);
        std::vector<Run> hublink;
        for (const int count : contactCounts) hublink.push_back(hublinkCalledOver(count));
        const Run few = scriptCalledOver(scriptedCounts[0]);
        const Run more = scriptCalledOver(scriptedCounts[1]);
        tellCalls(hublink.back(), more);
        // The script's steps for each contact are always the same.
        const double contacts = scriptedCounts[1] - scriptedCounts[0];
        scriptCalls_ = (more.counts.total() - few.counts.total()) / contacts;
        const double scriptTime = (more.milliseconds - few.milliseconds) / contacts;
        report_.tell(L"contacts     Hublink        time      script        time   ratio");
        for (std::size_t n = 0; n < hublink.size(); ++n) {
            const int further = contactCounts[n] - scriptedCounts[0];
            tell(contactCounts[n], hublink[n], few.counts.total() + scriptCalls_ * further,
                 few.milliseconds + scriptTime * further);
        }
        report_.tell(L"The script was run over 100 and 400 contacts; over more its figures are reckoned: " +
                     decimal(scriptCalls_) + L" round trips for each contact, two walks.");
        const unsigned long most = hublink.back().counts.total();
        report_.target(most <= 150, L"unknown caller over 10,000 contacts: " + std::to_wstring(most) +
                                        L" round trips; at most 150");
    }

    void tellCalls(const Run& hublink, const Run& script)
    {
        for (const std::wstring& line : table({{L"10,000", hublink.counts}, {L"script, 400", script.counts}}))
            report_.tell(line);
    }

    Run hublinkCalledOver(int count)
    {
        report_.tell(L"Hublink, " + std::to_wstring(count) + L" contacts");
        outlook_.load(contacts(count));
        runner_.hublinkStarts();
        const Run run = runner_.hublinkIsCalled(L"Number=" + number_ + L" LastName=Nguyen FirstName=Linh Incoming=true");
        expectNewContact();
        runner_.stopHublink();
        return run;
    }

    Run scriptCalledOver(int count)
    {
        report_.tell(L"script, " + std::to_wstring(count) + L" contacts");
        outlook_.load(contacts(count));
        const Run run = runner_.script(L"call " + number_ + L" Nguyen Linh");
        expectNewContact();
        return run;
    }

    void expectNewContact()
    {
        if (!desk_.outlookShows(L"Linh Nguyen - Contact")) throw std::runtime_error("no new contact is on the screen");
    }

    void tell(int count, const Run& hublink, double scriptCalls, double scriptTime)
    {
        const double calls = hublink.counts.total();
        report_.tell(aligned(std::to_wstring(count), 8) + aligned(std::to_wstring(hublink.counts.total()), 12) +
                     aligned(seconds(hublink.milliseconds), 12) + aligned(std::to_wstring(std::lround(scriptCalls)), 12) +
                     aligned(seconds(scriptTime), 12) + aligned(decimal(calls / scriptCalls), 8));
    }

    // An outgoing call only asks who it is: one walk, to its end.
    void walk()
    {
        report_.tell(L"the walk over " + std::to_wstring(walkedContacts) + L" contacts, in an Outlook without tables");
        runner_.configure(false);
        outlook_.load(contacts(walkedContacts));
        outlook_.ask(L"old on");
        runner_.hublinkStarts();
        const Run run = runner_.hublinkIsCalled(L"Number=" + number_ + L" Incoming=false");
        runner_.stopHublink();
        const double each = run.counts.total() / double{walkedContacts};
        report_.target(each <= 14.1, L"walk: " + decimal(each) + L" round trips for each contact, the script " +
                                         decimal(scriptCalls_ / 2) + L"; at most 14.100; " + seconds(run.milliseconds));
    }

    player::Desk& desk_;
    Report& report_;
    OutlookGroupware outlook_;
    Runner runner_;
    const std::wstring number_;
    double scriptCalls_ = 0; // for each contact
};

}

void measureCallers(player::Desk& desk, Report& report)
{
    report.section(L"Outlook: an unknown caller, who becomes a contact");
    Callers(desk, report).measure();
}

}
