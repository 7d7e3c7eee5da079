#include "desk/bench/softphone_steps.h"

namespace desk::bench {

std::vector<NeededCalls> recordsOfFirstSynchronisation()
{
    return {{L"attaching: Attached, Line, User, its two texts, History, AddressBook", 7},
            {L"the two counts", 2},
            {L"each entry: Item, Number, IdHigh, IdLow", 4 * 200},
            {L"each that is unknown: LastName, FirstName", 2 * 100},
            {L"each history item: Item, IdHigh, IdLow, Incoming, Number, State, BeginDate, EndDate", 8 * 1'000},
            {L"each that was answered: Acknowledged", 800},
            {L"each stranger: LastName, FirstName", 2 * 50}};
}

unsigned long sumOf(const std::vector<NeededCalls>& calls)
{
    unsigned long sum = 0;
    for (const NeededCalls& step : calls) sum += step.count;
    return sum;
}

}
