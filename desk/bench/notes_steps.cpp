#include "desk/bench/notes_steps.h"

#include "desk/bench/softphone_steps.h"

namespace desk::bench {

std::vector<NeededCalls> notesKnownCallersSteps()
{
    return {{L"call: Number, Incoming, DestinationNumber", 3},
            {L"each book: GetDatabase, GetView, GetDocumentByKey", 3 * 3},
            {L"document: LastName, FirstName, FullName, InternetAddress, NoteID", 5},
            {L"environment: the document cleared, server, base, document", 4},
            {L"screen: CurrentDocument, OpenDatabase, EditDocument", 3}};
}

std::vector<NeededCalls> notesFirstSynchronisationSteps()
{
    constexpr unsigned long known = 100;
    constexpr unsigned long fresh = 100;
    constexpr unsigned long items = 1'000;
    constexpr unsigned long withNumber = 950;
    constexpr unsigned long found = 180; // of their numbers, in the last of three books
    constexpr unsigned long strangers = 50;
    std::vector<NeededCalls> steps = recordsOfFirstSynchronisation();
    const std::vector<NeededCalls> inNotes{
        {L"session: the mail file, the user's name, the log, the history and the version", 6},
        {L"log document: CreateDocument, Form, Type, Server, Body, Events, StartTime, Save", 8},
        {L"208 more log lines: Body, its removal, Body, FinishTime, Save", 208 * 5},
        {L"each book: GetDatabase, GetView", 2 * 3},
        {L"each entry: GetDocumentByKey", known + fresh},
        {L"each known entry: NoteID", known},
        {L"each new contact: CreateDocument, Form, Type, four items, Save, NoteID", 9 * fresh},
        {L"each caller's number: GetDocumentByKey in each book", 3 * (found + strangers)},
        {L"each number found: four GetItemValue, NoteID", 5 * found},
        {L"each document: CreateDocument, Form, Type, six items, Save, NoteID, CurrentDatabase", 12 * items},
        {L"its caller: six items", 6 * withNumber},
        {L"each unanswered call: Acknowledged", 200}};
    steps.insert(steps.end(), inNotes.begin(), inNotes.end());
    return steps;
}

}
