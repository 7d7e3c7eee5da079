// The real programs with Notes alone, where the program's log outlives what Outlook's does not.
#pragma once

#include "desk/player/fixtures.h"
#include "desk_fixture.h"

class NotesDeskFixture : public DeskFixture {
protected:
    void startWithNotes()
    {
        startPartners();
        desk.startHublink();
        ASSERT_TRUE(notesLogGets(L"Connector Initialization  Ok"));
        ASSERT_TRUE(desk::player::waitUntil([] { return idle(); }, eventTimeout));
    }

    void startPartners(std::string_view softphone = {})
    {
        desk.startSoftphone(softphone);
        desk.startNotes(desk::player::morningDatabases());
        desk.setDefault("Application", "type", "LOTUS");
        for (const auto& [section, key, value] : desk::player::notesSettings()) desk.setDefault(section, key, value);
    }

    bool notesLogGets(const std::wstring& line)
    {
        return desk::player::waitUntil([&] { return notesLogHolds(line); }, eventTimeout);
    }

    // Whether a line of the log ends so after its date and time.
    bool notesLogHolds(const std::wstring& line)
    {
        const auto log = desk.document(L"connector.nsf", L"Form", L"Log");
        const std::wstring* body = log ? log->find(L"Body") : nullptr;
        return body && (*body + L"\n").find(L" " + line + L"\n") != std::wstring::npos;
    }
};
