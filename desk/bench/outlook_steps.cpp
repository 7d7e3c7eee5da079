#include "desk/bench/outlook_steps.h"

#include "desk/bench/softphone_steps.h"

namespace desk::bench {

using Steps = std::vector<NeededCalls>;

namespace {

const NeededCalls filter{L"filter: Items, Find", 2};
const NeededCalls contactTable{L"table: GetTable, Columns, Add of each telephone field, GetArray", 1 + 1 + 13 + 1};
const NeededCalls properties{L"EntryID, LastName, FirstName, Email1Address", 4};
const NeededCalls rewriting{L"the number put, Close", 2};
const NeededCalls display{L"Display", 1};
const NeededCalls mail{L"mail: CreateItem, Subject, Body, To, Display", 5};
const NeededCalls incoming{L"call: Number, Incoming, DestinationNumber", 3};

NeededCalls item(int fields)
{
    return {L"the item by its identifier, its telephone fields until the one that matches",
            1UL + static_cast<unsigned long>(fields)};
}

}

Steps strangersSteps()
{
    return {incoming,
            {L"call: LastName, FirstName", 2},
            filter,
            contactTable,
            filter,
            {L"contact: Items, Add, FirstName, LastName, BusinessTelephoneNumber, Close, Display, EntryID", 8},
            {L"log line: End, Body, Body, Close", 4}};
}

Steps storedCallersSteps()
{
    return {incoming, filter, properties, filter, display};
}

Steps rewrittenCallersSteps(int fields)
{
    return {incoming, filter, contactTable, item(fields), rewriting, properties, filter, display};
}

Steps keptCallersSteps(int fields)
{
    return {incoming, filter, contactTable, item(fields), properties, filter, item(fields), display};
}

Steps calledPartysSteps(int fields)
{
    return {{L"call: Number, Incoming", 2}, filter, contactTable, item(fields), rewriting, properties};
}

Steps rewrittenForwardedSteps(int callersFields, int colleaguesFields)
{
    return {
        incoming,  filter,     contactTable, item(callersFields), rewriting, properties, filter, item(colleaguesFields),
        rewriting, properties, filter,       properties,          mail,      filter,     display};
}

Steps firstSynchronisationSteps()
{
    constexpr unsigned long known = 100;
    constexpr unsigned long fresh = 100;
    constexpr unsigned long items = 1'000;
    constexpr unsigned long found = 900;     // of their callers
    constexpr unsigned long strangers = 50;
    constexpr unsigned long lookedFor = found + strangers;
    constexpr unsigned long knownFields = 550; // the first telephone field or the tenth by turns
    Steps steps = recordsOfFirstSynchronisation();
    const Steps inOutlook{
        {L"session: GetNamespace, GetDefaultFolder three times", 4},
        {L"log item: CreateItem, Subject, Start, End, Type, Body, Close", 7},
        {L"205 more log lines: End, Body, Body, Close", 205 * 4},
        {L"filter for each entry and each caller: Items, Find", 2 * (known + fresh + lookedFor)},
        {L"table for each that the filter does not find", contactTable.count * (known + fresh + strangers)},
        {L"each known entry: the item, its fields, the number put, Close", known + knownFields + 2 * known},
        {L"each found: EntryID, LastName, FirstName, Email1Address", 4 * (known + found)},
        {L"each new contact: Items, Add, three fields, Close, EntryID", 7 * fresh},
        {L"each journal item: CreateItem, Subject, Start, End, Type, Body, Close, EntryID", 8 * items},
        {L"its recipient: Recipients, Add", 2 * lookedFor}};
    steps.insert(steps.end(), inOutlook.begin(), inOutlook.end());
    return steps;
}

Steps keptForwardedSteps(int callersFields, int colleaguesFields)
{
    return {incoming,   filter, contactTable,           item(callersFields), properties, filter, item(colleaguesFields),
            properties, filter, item(colleaguesFields), properties,          mail,       filter, item(callersFields),
            display};
}

}
