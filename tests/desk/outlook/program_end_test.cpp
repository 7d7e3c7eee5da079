// How the program ends, is ended, or stops answering.
#include "automation/apartment.h"
#include "automation/owners.h"
#include "running_outlook.h"
#include "support/dummy_program.h"
#include "support/failure.h"

#include <gtest/gtest.h>

namespace {

using automation::Object;
using support::Process;
using support::eventually;

// A client of its own; its exit code is the call's.
DWORD WINAPI askForTheName(void*)
{
    const automation::Apartment apartment;
    const Object application = outlookObject();
    return static_cast<DWORD>(codeOf([&] { application.get(L"Name"); }));
}

}

TEST(OutlookEnd, Quit_IsAnswered_ThenTheProgramEndsWithItsRecordsSaved)
{
    const RunningOutlook outlook;
    const Object application = outlookObject();
    newContact(application, L"Marc Durand").call(L"Save");
    EXPECT_EQ(codeOf([&] { application.call(L"Quit"); }), S_OK);
    EXPECT_EQ(outlook.process().exitCode(), 0u);
    EXPECT_NE(support::readFile(outlook.storeFile()).find("FullName=Marc Durand\n"), std::string::npos);
    EXPECT_NE(codeOf([&] { application.get(L"Name"); }), S_OK);
}

TEST(OutlookEnd, UserClosesTheMainWindow_ProgramEnds)
{
    RunningOutlook outlook;
    HWND window = FindWindowW(nullptr, L"Contacts - Microsoft Outlook");
    ASSERT_NE(window, nullptr);
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(outlook.process().exitCode(), 0u);
    outlook.start();
    EXPECT_EQ(outlookObject().get(L"Name").text(), L"Outlook") << "a new one can be had";
}

TEST(OutlookEnd, ExitCommand_IsAnsweredThenDone)
{
    const RunningOutlook outlook;
    EXPECT_EQ(outlook.ask(L"exit"), L"ok");
    EXPECT_EQ(outlook.process().exitCode(), 0u);
}

TEST(OutlookEnd, Death_ShowsInTheClientsCalls_AndTheClassLivesOn)
{
    RunningOutlook outlook;
    Object application = outlookObject();
    EXPECT_EQ(outlook.ask(L"die"), L"ok");
    EXPECT_EQ(outlook.process().exitCode(), 1u);
    EXPECT_EQ(codeOf([&] { application.get(L"Name"); }), HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE));
    outlook.start();
    application = outlookObject();
    EXPECT_EQ(outlook.ask(L"fault on Application.Version die"), L"ok");
    EXPECT_EQ(codeOf([&] { application.get(L"Version"); }), HRESULT_FROM_WIN32(RPC_S_CALL_FAILED));
    outlook.start();
    EXPECT_EQ(outlookObject().get(L"Name").text(), L"Outlook");
}

TEST(OutlookEnd, DeathBeforeOrAfterASave_TheSavedContactOutlivesIt)
{
    RunningOutlook outlook;
    for (const auto& [when, saved] : {std::pair(L"", false), std::pair(L" after", true)}) {
        const Object contact = newContact(outlookObject(), L"Marc Durand");
        EXPECT_EQ(outlook.ask(std::wstring(L"fault on ContactItem.Save at 1 die") + when), L"ok");
        EXPECT_EQ(codeOf([&] { contact.call(L"Save"); }), HRESULT_FROM_WIN32(RPC_S_CALL_FAILED));
        EXPECT_EQ(outlook.process().exitCode(), 1u);
        outlook.start();
        EXPECT_EQ(outlook.ask(L"contacts").find(L"Marc") != std::wstring::npos, saved);
    }
}

TEST(OutlookEnd, PlannedEndOfAnotherProcess_ComesBeforeTheAnswer)
{
    const RunningOutlook outlook;
    const support::ScratchFolder folder;
    const support::DummyProgram other(folder, L"other.exe");
    const automation::Handle watched(OpenProcess(SYNCHRONIZE, FALSE, other.processId()));
    const Object application = outlookObject();
    EXPECT_EQ(outlook.ask(L"fault at 3 kill " + std::to_wstring(other.processId()) + L" after"), L"ok");
    application.get(L"Name"); // its look-up, and the call
    EXPECT_EQ(WaitForSingleObject(watched.get(), 0), static_cast<DWORD>(WAIT_TIMEOUT));
    EXPECT_EQ(application.get(L"Name").text(), L"Outlook");
    EXPECT_EQ(WaitForSingleObject(watched.get(), 0), WAIT_OBJECT_0);
}

TEST(OutlookEnd, PlannedEndOfAClientInsteadOfItsCall_LeavesNothingOfTheCall)
{
    const RunningOutlook outlook;
    const support::ScratchFolder folder;
    const support::DummyProgram other(folder, L"other.exe");
    const automation::Handle watched(OpenProcess(SYNCHRONIZE, FALSE, other.processId()));
    const Object contact = newContact(outlookObject(), L"Marc Durand");
    const std::wstring kill = L" kill " + std::to_wstring(other.processId()) + L" instead";
    EXPECT_EQ(outlook.ask(L"fault on ContactItem.Save at 1" + kill), L"ok");
    EXPECT_EQ(codeOf([&] { contact.call(L"Save"); }), HRESULT_FROM_WIN32(RPC_S_CALL_CANCELLED));
    EXPECT_EQ(WaitForSingleObject(watched.get(), 0), WAIT_OBJECT_0);
    EXPECT_EQ(outlook.ask(L"contacts").find(L"Marc"), std::wstring::npos);
}

TEST(OutlookEnd, HangingCall_TakesItsTime)
{
    const RunningOutlook outlook;
    const Object application = outlookObject();
    EXPECT_EQ(outlook.ask(L"fault on Application.Name hang 400"), L"ok");
    const DWORD start = GetTickCount();
    EXPECT_EQ(application.get(L"Name").text(), L"Outlook");
    EXPECT_GE(GetTickCount() - start, 380u);
}

TEST(OutlookEnd, HangForEver_LeavesTheClientWaiting_AndTheControlPipeAnswers)
{
    const RunningOutlook outlook;
    EXPECT_EQ(outlook.ask(L"fault on Application.Name hang"), L"ok");
    const automation::Handle client(CreateThread(nullptr, 0, askForTheName, nullptr, 0, nullptr));
    EXPECT_TRUE(eventually([&] { return outlook.ask(L"calls").find(L"Name get") != std::wstring::npos; }));
    EXPECT_TRUE(outlook.ask(L"ping").starts_with(L"outlook "));
    EXPECT_EQ(WaitForSingleObject(client.get(), 0), WAIT_TIMEOUT);
    EXPECT_EQ(outlook.ask(L"die"), L"ok");
    WaitForSingleObject(client.get(), INFINITE);
    DWORD code = 0;
    GetExitCodeThread(client.get(), &code);
    EXPECT_EQ(static_cast<HRESULT>(code), HRESULT_FROM_WIN32(RPC_S_CALL_FAILED));
}

TEST(OutlookEnd, Restart_TheNextProcessServesWhatWasStored)
{
    RunningOutlook outlook("[contact]\nFullName=Ann Abel\n");
    const Object before = outlookObject();
    const std::wstring first = outlook.ask(L"ping");
    EXPECT_EQ(outlook.ask(L"restart"), L"ok");
    EXPECT_EQ(outlook.process().exitCode(), 1u);
    EXPECT_TRUE(support::eventually([&] { return outlook.ask(L"ping") != first; }));
    EXPECT_NE(codeOf([&] { before.get(L"Name"); }), S_OK);
    EXPECT_NE(outlook.ask(L"contacts").find(L"Ann Abel"), std::wstring::npos);
    EXPECT_EQ(outlookObject().get(L"Name").text(), L"Outlook");
    const std::wstring next = outlook.ask(L"ping");
    const automation::Handle successor(OpenProcess(SYNCHRONIZE, FALSE, std::stoul(next.substr(next.find(L' ')))));
    EXPECT_EQ(outlook.ask(L"exit"), L"ok");
    EXPECT_EQ(WaitForSingleObject(successor.get(), 15'000), WAIT_OBJECT_0);
}

TEST(OutlookEnd, Version2003_ClosedByItsUser_LivesOnWhileAClientHoldsReferences)
{
    const RunningOutlook outlook("[outlook]\nVersion=2003\n[contact]\nFullName=Ann Abel\n");
    Object folder = contactsOf(outlookObject());
    outlook.ask(L"exit");
    EXPECT_TRUE(eventually([] { return !IsWindowVisible(FindWindowW(nullptr, L"Contacts - Microsoft Outlook")); }));
    EXPECT_EQ(folder.get(L"Items").object().get(L"Count").int32(), 1) << "it serves the client";
    EXPECT_EQ(outlook.process().exitCode(300), Process::stillRuns);
    folder = Object();
    EXPECT_EQ(outlook.process().exitCode(), 0u) << "the last reference has gone";
}

TEST(OutlookEnd, Version2016_ClosedByItsUser_EndsThoughAClientHoldsReferences)
{
    const RunningOutlook outlook;
    const Object folder = contactsOf(outlookObject());
    outlook.ask(L"exit");
    EXPECT_EQ(outlook.process().exitCode(), 0u);
}
