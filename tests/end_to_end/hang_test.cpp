// Partners that do not answer any more: a user who wants to stop the program can.
// Each of these takes the two spells of ten seconds that the program is patient for.
#include "automation/owners.h"
#include "notes_desk_fixture.h"
#include "support/processes.h"

namespace {

using desk::player::messageBoxes;
using desk::player::waitUntil;

class Hang : public NotesDeskFixture {
protected:
    static constexpr DWORD patiently = 45'000; // milliseconds: two spells, and a busy machine

    static HWND form() { return FindWindowW(L"Hublink", nullptr); }

    // Whether the partner has got the call in which it hangs.
    template <class Ask>
    static bool hangsIn(const std::wstring& member, Ask calls)
    {
        return waitUntil([&] { return calls().find(member) != std::wstring::npos; }, eventTimeout);
    }

    void expectEnded()
    {
        EXPECT_TRUE(ends(patiently));
        EXPECT_EQ(desk.hublinkProcess().exitCode(), 0u);
    }
};

// All of a process's threads stop where they are.
void suspend(DWORD processId)
{
    using Suspend = LONG(WINAPI*)(HANDLE);
    const auto suspendProcess = reinterpret_cast<Suspend>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtSuspendProcess")));
    const automation::Handle process(OpenProcess(PROCESS_SUSPEND_RESUME, FALSE, processId));
    ASSERT_TRUE(suspendProcess && process);
    EXPECT_EQ(suspendProcess(process.get()), 0);
}

}

TEST_F(Hang, Outlook_TheIconIsPressed_AsksInsideTheCall_AndYesEndsTheProgram)
{
    start("[contact]\nFirstName=Marc\nLastName=Durand\nBusinessTelephoneNumber=0123\n");
    desk.outlook(L"clear");
    desk.outlook(L"fault on Items.Find at 1 hang");
    desk.softphone(L"call Number=0123 Incoming=true");
    ASSERT_TRUE(hangsIn(L"Items.Find", [this] { return desk.outlook(L"calls"); }));
    PostMessageW(form(), WM_MOUSEMOVE, 1, WM_RBUTTONDOWN);
    ASSERT_TRUE(waitUntil([] { return !messageBoxes(L"Hublink").empty(); }, patiently));
    const auto question = messageBoxes(L"Hublink").front();
    EXPECT_EQ(question.text, L"Do you want to really stop Hublink ?");
    EXPECT_TRUE(desk.hublinkProcess().running());
    desk::player::answer(question, IDYES);
    expectEnded();
}

TEST_F(Hang, MapServer_ThatDoesNotStop_IsNotWaitedFor)
{
    start();
    const auto servers = support::processesNamed(L"PavexConvId.exe");
    ASSERT_EQ(servers.size(), 1u);
    PostMessageW(form(), WM_CLOSE, 0, 0);
    suspend(servers[0]);
    desk.tick();
    expectEnded();
    support::killMapServers();
}

TEST_F(Hang, Softphone_InTheFirstSynchronisation_KillInTheIniFileEndsTheProgram)
{
    desk.startSoftphone("[entry]\nId=1.1\nNumber=0111\nLastName=Adler\nFirstName=Alice\n");
    desk.startOutlook();
    desk.softphone(L"fault on AddressBook.Item hang");
    desk.startHublink();
    ASSERT_TRUE(hangsIn(L"AddressBook.Item", [this] { return desk.softphone(L"calls"); }));
    desk.setIni("Application", "kill", "true");
    expectEnded();
    EXPECT_NE(desk::player::readFile(desk.iniFile()).find("kill=false"), std::string::npos);
}

TEST_F(Hang, Notes_InTheFirstInitialisation_CloseEndsTheProgram)
{
    startPartners();
    desk.notes(L"fault on NotesSession.GetDatabase hang");
    desk.startHublink();
    ASSERT_TRUE(hangsIn(L"NotesSession.GetDatabase", [this] { return desk.notes(L"calls"); }));
    PostMessageW(form(), WM_CLOSE, 0, 0);
    expectEnded();
}
