#include "desk/bench/known.h"

#include "automation/text.h"
#include "desk/bench/outlook_calls.h"
#include "desk/bench/outlook_steps.h"

#include <algorithm>
#include <iterator>

namespace desk::bench {

namespace {

constexpr unsigned long maxInOutlook = 120; // round trips, wherever the contact lies
constexpr int measuredContacts = 10'000;    // what the steps are reckoned for

enum class Place { middle, end };

std::size_t indexOf(Place place, int contacts)
{
    return static_cast<std::size_t>(place == Place::middle ? contacts / 2 : contacts - 1);
}

void put(People& people, Place place, Person person, int layout)
{
    person.number = inLayout(person.number, layout);
    people[indexOf(place, static_cast<int>(people.size()))] = person;
}

int fieldsAt(Place place)
{
    return fieldsUntilNumber(indexOf(place, measuredContacts));
}

People withCaller(int count, Place place)
{
    People people = contacts(count);
    put(people, place, caller(), place == Place::middle ? 0 : 1);
    return people;
}

std::wstring callersNumber()
{
    return automation::toWide(caller().number);
}

OutlookCall callOf(Place place, Numbers numbers)
{
    const bool isRewritten = numbers == Numbers::rewritten;
    OutlookCall call;
    call.name = std::wstring(L"known under dots or blanks, ") + (place == Place::middle ? L"middle" : L"end") + L", " +
                (isRewritten ? L"rewritten" : L"kept");
    call.contacts = [place](int count) { return withCaller(count, place); };
    call.ring = L"Number=" + callersNumber() + L" Incoming=true";
    call.script = L"call " + callersNumber() + L" Durand Marc";
    call.titles = {L"Marc Durand - Contact"};
    call.numbers = numbers;
    call.needed = isRewritten ? rewrittenCallersSteps(fieldsAt(place)) : keptCallersSteps(fieldsAt(place));
    return call;
}

OutlookCall storedCall()
{
    OutlookCall call = callOf(Place::middle, Numbers::rewritten);
    call.name = L"known as stored";
    call.contacts = [](int count) {
        People people = contacts(count);
        people[indexOf(Place::middle, count)] = caller();
        return people;
    };
    call.needed = storedCallersSteps();
    return call;
}

OutlookCall outgoingCall()
{
    OutlookCall call = callOf(Place::middle, Numbers::rewritten);
    call.name = L"outgoing, known under dots";
    call.ring = L"Number=" + callersNumber() + L" Incoming=false";
    call.script = L"outgoing " + callersNumber();
    call.titles.clear();
    call.needed = calledPartysSteps(fieldsAt(Place::middle));
    return call;
}

OutlookCall forwardedCall(Numbers numbers)
{
    const bool isRewritten = numbers == Numbers::rewritten;
    const std::wstring colleaguesNumber = automation::toWide(colleague().number);
    OutlookCall call = callOf(Place::middle, numbers);
    call.name = std::wstring(L"forwarded, both under dots or blanks, ") + (isRewritten ? L"rewritten" : L"kept");
    call.contacts = [](int count) {
        People people = withCaller(count, Place::middle);
        put(people, Place::end, colleague(), 1);
        return people;
    };
    call.ring += L" DestinationNumber=" + colleaguesNumber;
    call.script = L"forwarded " + callersNumber() + L" " + colleaguesNumber;
    call.titles.push_back(L"Please call Marc Durand back at " + callersNumber() + L" - Message");
    const int callers = fieldsAt(Place::middle);
    const int colleagues = fieldsAt(Place::end);
    call.needed = isRewritten ? rewrittenForwardedSteps(callers, colleagues) : keptForwardedSteps(callers, colleagues);
    return call;
}

}

void measureKnown(player::Desk& desk, Report& report)
{
    report.section(L"Outlook: a known caller");
    report.remark(howTheScriptRuns);
    OutlookCalls calls(desk, report);
    calls.compare(storedCall());
    unsigned long most = 0;
    for (const Place place : {Place::middle, Place::end})
        for (const Numbers numbers : {Numbers::rewritten, Numbers::kept})
            most = std::max(most, calls.compare(callOf(place, numbers)).inGroupware);
    report.target(most <= maxInOutlook, L"known under dots or blanks, 10,000 contacts, event to window: at most " +
                                            std::to_wstring(most) + L" round trips in Outlook; target " +
                                            std::to_wstring(maxInOutlook));
    calls.reportWithoutTables(callOf(Place::end, Numbers::kept));
    calls.compare(outgoingCall());
}

void measureForwarded(player::Desk& desk, Report& report)
{
    report.section(L"Outlook: a forwarded call, caller in the middle of the folder, colleague at its end");
    report.remark(howTheScriptRuns);
    OutlookCalls calls(desk, report);
    for (const Numbers numbers : {Numbers::rewritten, Numbers::kept}) calls.compare(forwardedCall(numbers));
}

}
