// HublinkCheck beside the real programs, while they work.
#include "desk_fixture.h"

#include "automation/text.h"
#include "support/process.h"
#include "support/scratch_folder.h"

namespace {

class CheckAtTheDesk : public DeskFixture {
protected:
    // Its exit code; what it says is in `report`.
    DWORD check()
    {
        const std::wstring program = std::wstring(desk::player::Desk::programFolder) + L"\\HublinkCheck.exe";
        CopyFileW(support::pathBesideTests(L"HublinkCheck.exe").c_str(), program.c_str(), FALSE);
        const std::wstring output = folder.file(L"report");
        const support::Process process(L"\"" + program + L"\" --language en --map", output);
        const DWORD code = process.exitCode();
        report = desk::fromUtf8(support::readFile(output));
        return code;
    }

    bool says(const std::wstring& text) const { return report.find(text) != std::wstring::npos; }

    const support::ScratchFolder folder;
    std::wstring report;
};

}

TEST_F(CheckAtTheDesk, EverythingAtWork_IsFoundSound_AndNobodyIsCalled)
{
    start("[contact]\nFirstName=Marc\nLastName=Durand\nBusinessTelephoneNumber=0123\n",
          "[entry]\nId=1.1\nNumber=0123\nLastName=Durand\nFirstName=Marc\n"
          "[history]\nId=2.1\nNumber=0123\nIncoming=true\nState=6\n");
    const std::wstring outlooksCalls = desk.outlook(L"calls");
    const std::wstring softphonesCalls = desk.softphone(L"calls");

    EXPECT_EQ(check(), 0u) << automation::toAnsi(report);
    EXPECT_FALSE(says(L"\r\nproblem")) << automation::toAnsi(report);
    for (const wchar_t* program : {L"hublink.exe", L"pavex.exe", L"OUTLOOK.EXE", L"PavexConvId.exe"})
        EXPECT_TRUE(says(L"ok        " + std::wstring(program) + L" runs")) << automation::toAnsi(program);
    EXPECT_TRUE(says(L"ok        The softphone's folder is C:\\Pavex."));
    EXPECT_TRUE(says(L"ok        [Application] type = OUTLOOK\r\n"));
    EXPECT_TRUE(says(L"ok        Outlook: contacts 1, calls 1"));
    EXPECT_TRUE(says(L"\r\n1.1  "));
    EXPECT_TRUE(says(L"\r\n2.1  "));

    EXPECT_EQ(desk.outlook(L"calls"), outlooksCalls);
    EXPECT_EQ(desk.softphone(L"calls"), softphonesCalls);
    const std::wstring added = desk.softphone(L"entry add Number=0456 LastName=Petit FirstName=Claire");
    const auto isListed = [&] {
        check();
        return says(L"\r\n" + added + L"  ");
    };
    EXPECT_TRUE(desk::player::waitUntil(isListed, eventTimeout)) << "the map server goes on writing";
}

TEST_F(CheckAtTheDesk, SoftphoneRemoved_IsFound_AndNothingIsStarted)
{
    desk.uninstallSoftphone();
    EXPECT_EQ(check(), 1u);
    EXPECT_TRUE(says(L"problem   Pavex.Application is not registered: Hublink cannot reach this program."));
    EXPECT_TRUE(says(L"note      hublink.exe does not run."));
    EXPECT_TRUE(says(L"ok        Outlook.Application is registered"));
    EXPECT_TRUE(says(L"ok        OUTLOOK.EXE does not run.")) << "nor has looking at it started it";
}
