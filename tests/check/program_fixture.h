// HublinkCheck.exe on a computer that is sound to begin with: real registry, real files, its
// output and exit code.
#pragma once

#include "check_fixture.h"

#include "common/installation.h"
#include "convid/store_place.h"
#include "support/process.h"
#include "support/processes.h"

namespace hublink::check {

inline std::wstring fromUtf8(const std::string& bytes)
{
    std::wstring text(bytes.size(), L'\0');
    text.resize(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(),
                                                             static_cast<int>(bytes.size()), text.data(),
                                                             static_cast<int>(text.size()))));
    return text;
}

// A class that is registered, with a program that is there.
class RegisteredProgram {
public:
    RegisteredProgram(const std::wstring& progId, const std::wstring& classId, const std::wstring& program)
        : id_(HKEY_LOCAL_MACHINE, L"Software\\Classes\\" + progId + L"\\CLSID", L""),
          usersId_(HKEY_CURRENT_USER, L"Software\\Classes\\" + progId + L"\\CLSID", L""),
          server_(HKEY_LOCAL_MACHINE, L"Software\\Classes\\CLSID\\" + classId + L"\\LocalServer32", L"")
    {
        usersId_.removeValue();
        id_.setText(classId);
        server_.setText(L"\"" + program + L"\"");
    }

    void unregister() const { id_.removeValue(); }
    void setProgram(const std::wstring& program) const { server_.setText(program); }

private:
    const support::SavedValue id_;
    const support::SavedValue usersId_;
    const support::SavedValue server_;
};

class CheckProgram : public testing::Test {
protected:
    CheckProgram()
    {
        folder.folder(L"Téléphone d'été");
        folder.folder(L"Téléphone d'été\\Connector");
        folder.write(L"Téléphone d'été\\pavex.exe", "");
        pavexPath.setText(pavex);
        server.setText(L"pbx.example");
        user.setText(L"annakeller");
        writeIni("[Application]\r\ntype=OUTLOOK\r\n[AllApplication]\r\nPopUp=true\r\n[outlook]\r\n"
                 "CallBackMailSyntaxe=Anna Keller asks you to call 0123456789\r\n");
    }

    void SetUp() override
    {
        if (!support::isWine()) GTEST_SKIP() << "would use the signed-in user's own identifier map";
        support::killMapServers();
        CreateDirectoryW(map.substr(0, map.rfind(L'\\')).c_str(), nullptr);
        DeleteFileW(map.c_str());
    }

    void TearDown() override { DeleteFileW(map.c_str()); }

    void writeIni(const std::string& content) const { support::writeFile(ini, content); }

    // Its exit code; what it said is in `text`.
    DWORD run(const std::wstring& arguments = L"--language en")
    {
        const std::wstring output = folder.file(L"output");
        const support::Process check(support::command(L"HublinkCheck.exe") + L" " + arguments, output);
        const DWORD code = check.exitCode();
        text = fromUtf8(support::readFile(output));
        DeleteFileW(output.c_str());
        return code;
    }

    // Of a report in the language of these texts: the finding with its mark, and what to do.
    bool says(const Finding& finding, const ReportTexts& texts = english.report) const
    {
        std::wstring mark = (finding.mark == Mark::ok     ? texts.ok()
                             : finding.mark == Mark::note ? texts.note()
                                                          : texts.problem())
                                .full;
        mark.resize(10, L' ');
        const std::wstring advice = finding.advice.empty() ? L"" : L"          -> " + finding.advice.full + L"\r\n";
        return text.find(L"\r\n" + mark + finding.what.full + L"\r\n" + advice) != std::wstring::npos;
    }

    // The same findings in each language, which `findings` makes of its texts.
    template <class FindingsOf>
    void expectInBothLanguages(DWORD code, const FindingsOf& findings)
    {
        for (const Texts* texts : {&english, &french}) {
            EXPECT_EQ(run(texts == &french ? L"--language fr" : L"--language en"), code);
            const Findings expected = findings(*texts);
            for (const Finding& each : expected)
                EXPECT_TRUE(says(each, texts->report)) << testing::PrintToString(each) << "\n"
                                                       << automation::toAnsi(text);
        }
    }

    const support::ScratchFolder folder;
    const std::wstring pavex = folder.file(L"Téléphone d'été");
    const std::wstring ini = pavex + L"\\Connector\\pavexconnector.ini";
    const std::wstring map = convid::storePath();
    const support::SavedValue pavexPath{HKEY_LOCAL_MACHINE, softphoneKey, L"Path"};
    const support::SavedValue server{HKEY_CURRENT_USER, userKey, L"HostZRB"};
    const support::SavedValue user{HKEY_CURRENT_USER, userKey, L"Man"};
    const std::wstring program = folder.write(L"program.exe", "");
    const RegisteredProgram softphone{L"Pavex.Application", L"{2F1D6E4A-4B7C-4D0E-913A-5C77201B6E10}", program};
    const RegisteredProgram outlook{L"Outlook.Application", L"{2F1D6E4A-4B7C-4D0E-913A-5C77201B6E11}", program};
    std::wstring text;
};

}
