// A program that is asked to stop while it is at work, and by whom.
#include "notes_desk_fixture.h"

namespace {

using desk::player::messageBoxes;
using desk::player::waitUntil;

HWND form()
{
    return FindWindowW(L"Hublink", nullptr);
}

// A synchronisation that takes a quarter of an hour with the default pauses.
std::string thousandsOfEntries()
{
    std::string records;
    for (int n = 0; n < 3000; ++n) {
        const std::string number = std::to_string(n);
        records += "[entry]\nId=1." + number + "\nNumber=09" + number + "\nLastName=Adler\nFirstName=Alice\n";
    }
    return records;
}

class StopInASynchronisation : public NotesDeskFixture {
protected:
    void startSynchronisation()
    {
        startPartners(thousandsOfEntries());
        desk.startHublink();
        ASSERT_TRUE(notesLogGets(L"Start repertory Synchronisation "));
    }

    void expectAbortedAndEnded()
    {
        EXPECT_TRUE(notesLogGets(L"Stop Connector"));
        EXPECT_TRUE(notesLogGets(L"Abort Repertory Synchronisation"));
        EXPECT_TRUE(notesLogGets(L"Abort Connector Initialization"));
        desk.tick();
        EXPECT_TRUE(ends());
        EXPECT_EQ(desk.hublinkProcess().exitCode(), 0u);
    }
};

class SentMessage : public DeskFixture {
protected:
    // With Outlook to be quit at the end, and "trace" on.
    void startTraced()
    {
        desk.setDefault("outlook", "quitoutlook", "true");
        start();
        desk.setIni("Application", "trace", "true");
        desk.tick();
        ASSERT_TRUE(boxShows(L"ReInit Outlook"));
        settle();
    }
};

using SentMessageWithNotes = NotesDeskFixture;

}

TEST_F(StopInASynchronisation, IconPressedAndYes_AbortsIt_AndEndsTheProgram)
{
    startSynchronisation();
    desk::player::moveToNotificationIcon();
    desk::player::rightPress();
    ASSERT_TRUE(waitUntil([] { return !messageBoxes(L"Hublink").empty(); }, eventTimeout));
    const auto question = messageBoxes(L"Hublink").front();
    EXPECT_EQ(question.text, L"Do you want to really stop Hublink ?");
    desk::player::answer(question, IDYES);
    expectAbortedAndEnded();
}

TEST_F(StopInASynchronisation, CloseAskedFor_AbortsIt_AndEndsTheProgram)
{
    startSynchronisation();
    PostMessageW(form(), WM_CLOSE, 0, 0);
    expectAbortedAndEnded();
}

TEST_F(StopInASynchronisation, KillInTheIniFile_AbortsIt_AndIsSetBack)
{
    startSynchronisation();
    desk.setIni("Application", "kill", "true");
    expectAbortedAndEnded();
    EXPECT_NE(desk::player::readFile(desk.iniFile()).find("kill=false"), std::string::npos);
}

// Inside a message that is sent and waited for, Windows refuses every call to Outlook
// (Wine does not; which side of the message "quit" is on, the tests of the window see).
TEST_F(SentMessage, CloseSentByAnotherProcess_QuitsOutlook_IsLogged_AndEndsTheProgram)
{
    startTraced();
    DWORD_PTR result = 0;
    EXPECT_TRUE(SendMessageTimeoutW(form(), WM_CLOSE, 0, 0, SMTO_NORMAL, eventTimeout, &result));
    EXPECT_TRUE(desk.outlookProcess().ended(eventTimeout));
    EXPECT_TRUE(boxShows(L"Stop Connector"));
    desk.tick();
    EXPECT_TRUE(boxShows(L"The End !!!"));
    EXPECT_TRUE(ends());
}

TEST_F(SentMessage, EndOfTheWindowsSession_QuitsOutlook_AndShowsNoBox)
{
    startTraced();
    // It comes while a call is served, inside one to Outlook more often than not.
    desk.outlook(L"clear");
    desk.softphone(L"call Number=0999 Incoming=false");
    ASSERT_TRUE(outlookIsAskedFor(L"Items.Find"));
    DWORD_PTR result = 0;
    EXPECT_TRUE(SendMessageTimeoutW(form(), WM_QUERYENDSESSION, 0, 0, SMTO_NORMAL, eventTimeout, &result));
    EXPECT_TRUE(result);
    ASSERT_TRUE(SendMessageTimeoutW(form(), WM_ENDSESSION, TRUE, 0, SMTO_NORMAL, eventTimeout, &result));
    EXPECT_TRUE(desk.outlookProcess().ended(eventTimeout));
    // A box would wait for an answer, and the program for the box.
    desk.tick();
    EXPECT_TRUE(ends());
}

TEST_F(SentMessageWithNotes, EndOfTheWindowsSession_IsLogged)
{
    startWithNotes();
    DWORD_PTR result = 0;
    ASSERT_TRUE(SendMessageTimeoutW(form(), WM_ENDSESSION, TRUE, 0, SMTO_NORMAL, eventTimeout, &result));
    EXPECT_TRUE(notesLogGets(L"Stop Connector"));
    desk.tick();
    EXPECT_TRUE(ends());
}
