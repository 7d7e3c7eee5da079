// The real programs with Notes alone, where its log outlives what Outlook's does not.
#include "desk_test.h"

#include "desk/player/fixtures.h"

namespace {

class WithNotes : public DeskTest {
protected:
    void startWithNotes()
    {
        desk.startSoftphone();
        desk.startNotes(desk::player::morningDatabases());
        desk.setDefault("Application", "type", "LOTUS");
        for (const auto& [section, key, value] : desk::player::notesSettings()) desk.setDefault(section, key, value);
        desk.startHublink();
        ASSERT_TRUE(notesLogGets(L"Connector Initialization  Ok"));
        ASSERT_TRUE(desk::player::waitUntil([] { return idle(); }, soon));
    }

    bool notesLogGets(const std::wstring& line)
    {
        return desk::player::waitUntil([&] { return desk.document(L"connector.nsf", L"Form", L"Log") && holds(line); },
                                       soon);
    }

    // Whether a line of the log ends so after its date and time.
    bool holds(const std::wstring& line)
    {
        const auto log = desk.document(L"connector.nsf", L"Form", L"Log");
        const std::wstring* body = log ? log->find(L"Body") : nullptr;
        return body && (*body + L"\n").find(L" " + line + L"\n") != std::wstring::npos;
    }
};

}

TEST_F(WithNotes, SoftphoneQuits_TheLogGetsItsLastLine_AndTheProgramEndsAtTheNextTick)
{
    startWithNotes();
    desk.softphone(L"quit");
    EXPECT_TRUE(notesLogGets(L"Stop Connector"));
    desk.tick();
    EXPECT_TRUE(ends());
    EXPECT_TRUE(desk.notesProcess().running());
}
