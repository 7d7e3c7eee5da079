#include "desk/bench/callers.h"

#include "automation/text.h"
#include "desk/bench/outlook_calls.h"
#include "desk/bench/outlook_steps.h"

namespace desk::bench {

namespace {

constexpr unsigned long maxForStranger = 90; // round trips
constexpr int walkedContacts = 1'000;

OutlookCall strangersCall()
{
    const std::wstring number = automation::toWide(strangersNumber());
    OutlookCall call;
    call.name = L"unknown";
    call.contacts = contacts;
    call.ring = L"Number=" + number + L" LastName=Nguyen FirstName=Linh Incoming=true";
    call.script = L"call " + number + L" Nguyen Linh";
    call.titles = {L"Linh Nguyen - Contact"};
    call.needed = strangersSteps();
    return call;
}

// It only asks who is called: one walk, to its end.
OutlookCall outgoingCall()
{
    OutlookCall call = strangersCall();
    call.ring = L"Number=" + automation::toWide(strangersNumber()) + L" Incoming=false";
    call.titles.clear();
    return call;
}

void measureWalk(OutlookCalls& calls, Report& report)
{
    report.remark(L"the walk over " + std::to_wstring(walkedContacts) + L" contacts, in an Outlook without tables");
    const Run run = calls.hublinkWithoutTables(outgoingCall(), walkedContacts);
    const double each = run.counts.total() / double{walkedContacts};
    report.target(each <= 14.1, L"walk: " + decimal(each) + L" round trips for each contact; at most 14.100; " +
                                    seconds(run.milliseconds));
}

}

void measureCallers(player::Desk& desk, Report& report)
{
    report.section(L"Outlook: an unknown caller, who becomes a contact");
    report.remark(howTheScriptRuns);
    OutlookCalls calls(desk, report);
    const unsigned long most = calls.compare(strangersCall()).counts.total();
    report.target(most <= maxForStranger, L"unknown caller over 10,000 contacts: " + std::to_wstring(most) +
                                              L" round trips; at most " + std::to_wstring(maxForStranger));
    measureWalk(calls, report);
}

}
