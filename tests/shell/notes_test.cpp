// What the form does about Notes: the log, the supervision, the reload, the
// timer that follows the document in front.
#include "form_fixture.h"

#include "automation/outgoing_call.h"
#include "desk/lotus/in_process.h"

namespace hublink {

using shell_tests::iniText;

namespace {

constexpr const char* lotusSections =
    "[lotus]\r\nNbPublicAddressBook=1\r\nOrder=Base 1\r\n"
    "[lotus base description 1]\r\nbase=names.nsf||People||\r\n"
    "[lotus personnel log description]\r\nbase=log.nsf||||\r\nBody=Body\r\nEvents=Events\r\nForm=Log\r\n"
    "TypeForm=Log\r\nStartTime=StartTime\r\nFinishTime=FinishTime\r\nServer=Server\r\n";

class NotesShell : public shell_tests::FormFixture {
protected:
    NotesShell()
    {
        notes.load(L"[database]\nFile=names.nsf\n\n[database]\nFile=log.nsf\n");
        softphone.emplace(folder, L"Pavex.exe");
    }

    void startNotes() { program.emplace(folder, L"NLNOTES.EXE"); }

    void start(const std::string& application = "", const std::string& type = "type=LOTUS\r\n")
    {
        writeIni(iniText(application, "", type) + lotusSections);
        load();
        boxes.clear();
    }

    LotusSession& session() { return form().lotus(); }

    // The bodies of the log documents, oldest first.
    std::vector<std::wstring> logs()
    {
        std::vector<std::wstring> bodies;
        for (const desk::StoreRecord& record : desk::parseStore(notes.ask(L"documents log.nsf")))
            if (const std::wstring* body = record.find(L"Body")) bodies.push_back(*body);
        return bodies;
    }

    bool logged(const std::wstring& line)
    {
        const auto bodies = logs();
        return !bodies.empty() && (bodies.back() + L"\n").find(L" " + line + L"\n") != std::wstring::npos;
    }

    void documentTick() { SendMessageW(form().window().handle(), WM_TIMER, FormWindow::documentTimer, 0); }

    // What a tick of the document timer asks of Notes.
    std::wstring askedByATick()
    {
        notes.recorder().clear();
        documentTick();
        return notes.recorder().totals();
    }

    desk::lotus::InProcess notes;
    std::optional<support::DummyProgram> softphone;
    std::optional<support::DummyProgram> program;
};

}

TEST_F(NotesShell, Start_OpensTheSession_AndItsLogDocument)
{
    start();
    EXPECT_TRUE(session().LotusReady);
    EXPECT_FALSE(session().LotusMustInit);
    EXPECT_TRUE(logged(L"Start Connector Initialization"));
    EXPECT_TRUE(logged(L"Connector Initialization  Ok"));
}

TEST_F(NotesShell, Load_AsksForAnInitialisation)
{
    writeIni(iniText("", "", "type=OUTLOOK\r\n"));
    form().lotus().LotusMustInit = false;
    load();
    EXPECT_TRUE(session().LotusMustInit);
}

TEST_F(NotesShell, LogLine_GoesToNotesBeforeOutlook_AndBeforeTheUser)
{
    start("trace=true\r\n", "type=OUTLOOK,LOTUS\r\n");
    openOutlook();
    outlook.onCall = [&](const support::RawPartner::Call&) {
        EXPECT_TRUE(logged(L"a line"));
        return E_FAIL;
    };
    onBox = [&](const std::wstring&) {
        EXPECT_TRUE(logged(L"a line"));
        return IDOK;
    };
    form().WriteLog(L"a line");
    EXPECT_FALSE(outlook.invocations.empty());
    EXPECT_EQ(boxes.size(), 1u);
}

TEST_F(NotesShell, LogLine_WithNotesNotReady_GoesToNobody)
{
    start();
    session().LotusReady = false;
    form().WriteLog(L"a line");
    EXPECT_FALSE(logged(L"a line"));
}

TEST_F(NotesShell, StopLine_StillReachesNotes)
{
    start();
    form().StopConnector();
    EXPECT_TRUE(logged(L"Stop Connector"));
}

TEST_F(NotesShell, NotesGone_DropsTheSession_AndStaysReady)
{
    start();
    tick();
    EXPECT_TRUE(session().LotusReady);
    EXPECT_TRUE(session().LotusMustInit);
    EXPECT_FALSE(session().NotesSession);
}

TEST_F(NotesShell, NotesRunning_IsLeftAlone)
{
    start();
    startNotes();
    notes.recorder().clear();
    tick();
    EXPECT_TRUE(session().NotesSession);
    EXPECT_EQ(notes.recorder().totals(), L"");
}

TEST_F(NotesShell, NotesBack_InitialisesTheConnectorAgain_WithANewLogDocument)
{
    start();
    tick();
    startNotes();
    tick();
    EXPECT_TRUE(session().LotusReady);
    EXPECT_FALSE(session().LotusMustInit);
    EXPECT_EQ(logs().size(), 2u);
    EXPECT_TRUE(logged(L"Connector Initialization  Ok"));
}

TEST_F(NotesShell, NotesRestartedBetweenTwoTicks_DropsTheSession_TheNextTickInitialisesAgain)
{
    start();
    startNotes();
    tick();
    ASSERT_TRUE(session().NotesSession);
    program.reset();
    startNotes();
    documentTick();
    tick();
    EXPECT_FALSE(session().NotesSession) << "the document timer has not used the one answer up";
    EXPECT_TRUE(session().LotusMustInit);
    tick();
    EXPECT_TRUE(session().NotesSession);
    EXPECT_FALSE(session().LotusMustInit);
    EXPECT_EQ(logs().size(), 2u);
}

TEST_F(NotesShell, WhileNotesIsAway_LinesAreDropped)
{
    start();
    tick();
    notes.recorder().clear();
    form().WriteLog(L"a line");
    EXPECT_EQ(notes.recorder().totals(), L"");
}

TEST_F(NotesShell, NotReady_IsNotWatched)
{
    start();
    startNotes();
    session().LotusReady = false;
    session().LotusMustInit = true;
    tick();
    EXPECT_FALSE(session().LotusReady) << "a failed initialisation is not retried by the supervision";
}

TEST_F(NotesShell, TouchedIniFile_InitialisesAgain_IntoTheSameLogDocument)
{
    start();
    startNotes();
    touchIni();
    tick();
    EXPECT_TRUE(session().LotusReady);
    EXPECT_EQ(logs().size(), 1u);
    EXPECT_TRUE(logged(L"Reload Ini data"));
    EXPECT_TRUE(logged(L"Read ini file " + iniPath()));
}

TEST_F(NotesShell, TouchedIniFile_RetriesAFailedInitialisation)
{
    notes.withdraw();
    start();
    EXPECT_FALSE(session().LotusReady);
    notes.offer();
    touchIni();
    tick();
    EXPECT_TRUE(session().LotusReady);
}

TEST_F(NotesShell, SwitchedOffInTheIniFile_IsNotReady_AndCanBeSwitchedOnAgain)
{
    start();
    startNotes();
    writeIni(iniText("trace=true\r\n", "", "type=OUTLOOK\r\n") + lotusSections);
    touchIni();
    tick();
    EXPECT_FALSE(session().LotusReady);
    EXPECT_TRUE(session().LotusMustInit);
    writeIni(iniText("trace=true\r\n", "", "type=LOTUS\r\n") + lotusSections);
    touchIni();
    tick();
    EXPECT_TRUE(session().LotusReady);
    EXPECT_TRUE(wasShown(L"ReInit lotus"));
}

TEST_F(NotesShell, BothGone_TheReturnOfOutlookInitialisesBoth)
{
    start("", "type=OUTLOOK,LOTUS\r\n");
    tick();
    support::DummyProgram outlookProgram(folder, L"OUTLOOK.EXE");
    tick();
    EXPECT_EQ(logs().size(), 2u) << "the return of Outlook initialises Notes as well, and starts it";
}

TEST_F(NotesShell, DocumentTimer_RunsFromTheStart)
{
    EXPECT_TRUE(KillTimer(form().window().handle(), FormWindow::documentTimer));
}

TEST_F(NotesShell, DocumentTick_WithNotesInFront_FollowsItsDocument)
{
    start();
    const support::DummyProgram inFront(folder, L"NLNOTES.EXE", support::DummyProgram::Window::inFront);
    notes.recorder().clear();
    documentTick();
    EXPECT_EQ(notes.recorder().count(L"NotesUIWorkspace.CurrentDatabase get"), 1u);
}

TEST_F(NotesShell, ProcessOfNotes_IsFoundOnce_AndKept)
{
    start();
    startNotes();
    documentTick();
    program.reset();
    const support::DummyProgram another(folder, L"NLNOTES.EXE", support::DummyProgram::Window::inFront);
    notes.recorder().clear();
    documentTick();
    EXPECT_EQ(notes.recorder().totals(), L"") << "it is not looked for again";
}

TEST_F(NotesShell, DocumentTick_WithAnotherProgramInFront_TouchesNothing)
{
    start();
    const support::DummyProgram behind(folder, L"NLNOTES.EXE", support::DummyProgram::Window::inFront);
    const support::DummyProgram inFront(folder, L"OTHER.EXE", support::DummyProgram::Window::inFront);
    EXPECT_EQ(askedByATick(), L"");
}

TEST_F(NotesShell, DocumentTick_WithNotesInTheFrameOfAnotherProgramInFront_FollowsItsDocument)
{
    start();
    const support::DummyProgram frame(folder, L"NOTES2.EXE", support::DummyProgram::Window::inFront);
    const support::DummyProgram inFrame(folder, L"NLNOTES.EXE", support::DummyProgram::Window::inFrame,
                                        GetForegroundWindow());
    notes.recorder().clear();
    documentTick();
    EXPECT_EQ(notes.recorder().count(L"NotesUIWorkspace.CurrentDatabase get"), 1u);
}

TEST_F(NotesShell, DocumentTick_WithNotesHiddenInTheFrameInFront_TouchesNothing)
{
    start();
    const support::DummyProgram frame(folder, L"NOTES2.EXE", support::DummyProgram::Window::inFront);
    const support::DummyProgram hidden(folder, L"NLNOTES.EXE", support::DummyProgram::Window::hiddenInFrame,
                                       GetForegroundWindow());
    const support::DummyProgram other(folder, L"OTHER.EXE", support::DummyProgram::Window::inFrame,
                                      GetForegroundWindow());
    EXPECT_EQ(askedByATick(), L"");
}

TEST_F(NotesShell, DocumentTick_WithTheDesktopInFront_TouchesNothing)
{
    start();
    const support::DummyProgram behind(folder, L"NLNOTES.EXE", support::DummyProgram::Window::inFront);
    SetForegroundWindow(GetDesktopWindow());
    ASSERT_TRUE(!GetForegroundWindow() || GetForegroundWindow() == GetDesktopWindow());
    EXPECT_EQ(askedByATick(), L"") << "all windows lie in the desktop";
}

TEST_F(NotesShell, DocumentTick_WithoutNotes_TouchesNothing_WhateverIsInFront)
{
    start();
    SetForegroundWindow(GetDesktopWindow());
    EXPECT_EQ(askedByATick(), L"") << "an unknown process is nobody's";
    const support::DummyProgram inFront(folder, L"OTHER.EXE", support::DummyProgram::Window::inFront);
    EXPECT_EQ(askedByATick(), L"");
}

TEST_F(NotesShell, DocumentTick_WithoutAReadySession_TouchesNothing_AndDoesNotLookForNotes)
{
    start();
    const support::DummyProgram inFront(folder, L"NLNOTES.EXE", support::DummyProgram::Window::inFront);
    session().LotusReady = false;
    EXPECT_EQ(askedByATick(), L"");
    session().LotusReady = true;
    EXPECT_NE(askedByATick(), L"");
}

TEST_F(NotesShell, DocumentTick_IsNoSupervisionTick)
{
    softphone.reset();
    start();
    documentTick();
    EXPECT_FALSE(configuration().gStop);
}

}
