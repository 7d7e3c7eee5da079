// HublinkCheck.exe as its users meet it, on a sound computer; and what no run of it may do.
#include "program_fixture.h"
#include "system_snapshot.h"

#include "automation/system_message.h"
#include "check/output.h"
#include "convid/identifier_store.h"

namespace hublink::check {

TEST_F(CheckProgram, OnASoundComputer_FindsNoProblem)
{
    EXPECT_EQ(run(), 0u) << automation::toAnsi(text);
    EXPECT_EQ(text.find(L"\r\nproblem"), std::wstring::npos) << automation::toAnsi(text);
    EXPECT_TRUE(text.starts_with(L"What Hublink 1."));
    EXPECT_TRUE(says(ok(english.softphone.folder, path(pavex))));
    EXPECT_TRUE(says(ok(english.ini.file, path(ini))));
    EXPECT_TRUE(says(ok(english.ini.on, L"AllApplication", L"PopUp")));
    EXPECT_TRUE(says(ok(english.classes.registered, L"Outlook.Application", path(program))));
    EXPECT_NE(text.find(L"\r\nNo problem was found. Notes: "), std::wstring::npos);
}

TEST_F(CheckProgram, InFrench_SaysTheSameInFrench)
{
    EXPECT_EQ(run(L"--language fr"), 0u);
    EXPECT_TRUE(says(ok(french.softphone.folder, path(pavex))));
    EXPECT_NE(text.find(L"\r\nAucun problème n'a été trouvé. Notes : "), std::wstring::npos);
}

TEST_F(CheckProgram, WithADamagedMap_SaysSo_AndLeavesItAsItIs)
{
    {
        convid::IdentifierStore store(map);
        store.insert({L"1.1", L"entry one", 0, 1});
        store.insert({L"1.2", L"entry two", 0, 1});
    }
    std::string bytes = support::readFile(map);
    bytes[40] = '!';
    support::writeFile(map, bytes);
    EXPECT_EQ(run(L"--language en --map"), 1u);
    EXPECT_TRUE(says(problem(english.map.damaged, std::size_t{1})));
    EXPECT_NE(text.find(L"\r\n1.2  entry two  Outlook  contact\r\n"), std::wstring::npos);
    EXPECT_EQ(support::readFile(map), bytes);
}

TEST_F(CheckProgram, SavedReport_HasNoNames_UnlessTold)
{
    const std::wstring file = folder.file(L"mon rapport é.txt");
    EXPECT_EQ(run(L"--language en --save \"" + file + L"\""), 0u);
    EXPECT_NE(text.find(L"annakeller"), std::wstring::npos) << "on the user's own screen";
    const std::string saved = support::readFile(file);
    EXPECT_TRUE(saved.starts_with("\xEF\xBB\xBFWhat Hublink"));
    for (const char* name : {"annakeller", "Anna", "0123456789", "pbx.example"})
        EXPECT_EQ(saved.find(name), std::string::npos) << name;
    EXPECT_NE(saved.find("The softphone's user is ***."), std::string::npos);
    DeleteFileW(file.c_str());
    EXPECT_EQ(run(L"--language en --with-names --save \"" + file + L"\""), 0u);
    for (const char* name : {"annakeller", "Anna", "0123456789", "pbx.example"})
        EXPECT_NE(support::readFile(file).find(name), std::string::npos) << name;
}

TEST_F(CheckProgram, ReportThatCannotBeSaved_IsTold_AndNoFileIsReplaced)
{
    EXPECT_EQ(run(L"--language en --save \"" + ini + L"\""), 2u);
    EXPECT_NE(text.find(english.report.notSaved(ini, automation::systemMessage(ERROR_FILE_EXISTS)).full),
              std::wstring::npos);
    EXPECT_TRUE(support::readFile(ini).starts_with("[Application]"));
    EXPECT_EQ(run(L"--save \"" + folder.path() + L"\""), 2u);
}

TEST_F(CheckProgram, WrongCommandLine_IsAnsweredWithTheUsage)
{
    for (const wchar_t* wrong : {L"--frobnicate", L"--save"}) {
        EXPECT_EQ(run(wrong), 2u);
        EXPECT_TRUE(text.starts_with(english.report.notUnderstood(wrong).full + L"\r\n"));
        EXPECT_NE(text.find(L"HublinkCheck [--map] [--language en|fr]"), std::wstring::npos);
        EXPECT_EQ(text.find(L"Softphone"), std::wstring::npos);
    }
    EXPECT_EQ(run(L"--help"), 0u);
    EXPECT_NE(text.find(L"HublinkCheck [--map]"), std::wstring::npos);
}

TEST_F(CheckProgram, AnyRun_ChangesNothing)
{
    run(); // Windows may note something at a program's first start
    writeIni("[Application]\r\ntype=OUTLOOK,LOTUS\r\nkill=true\r\n[outlook]\r\nExtension=true\r\n"
             "DllExtensionName=Hublink\r\nRegisteDllExtension=4.0;x.dll\r\n[lotus]\r\nNbPublicAddressBook=1\r\n"
             "Order=Base 1\r\n[lotus base description 1]\r\nbase=names.nsf|<server name>|Contacts||\r\n");
    const support::SavedValue extensions(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\Exchange\\Client\\Extensions",
                                         L"Other");
    extensions.setText(L"is there");
    const std::wstring appData = map.substr(0, map.rfind(L'\\'));
    support::writeFile(map, "damaged");
    const auto everything = [&] {
        std::wstring text = registryText(HKEY_CURRENT_USER, L"") + folderText(folder.path()) + folderText(appData) +
                            folderText(support::pathBesideTests(L"dictionary"));
        for (const wchar_t* key :
             {L"Software\\Microsoft\\Exchange", L"Software\\Microsoft\\Windows", L"Software\\Lotus", L"Software\\Orvel",
              L"Software\\Classes\\PavexConvId.OrvelConvertId"})
            text += registryText(HKEY_LOCAL_MACHINE, key);
        return text;
    };
    const std::wstring programs = programsText();
    const std::wstring before = everything();
    EXPECT_NE(before.find(L"pavexconnector.ini"), std::wstring::npos) << "the files were not read";
    EXPECT_NE(before.find(userKey), std::wstring::npos) << "the registry was not read";
    EXPECT_EQ(run(L"--language en --map"), 1u);
    EXPECT_TRUE(everything() == before);
    EXPECT_EQ(programsText(), programs);
}

TEST(CheckOutput, ToAFile_IsUtf8)
{
    const support::ScratchFolder folder;
    const std::wstring file = folder.file(L"out");
    const HANDLE usual = GetStdHandle(STD_OUTPUT_HANDLE);
    const HANDLE out = CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    SetStdHandle(STD_OUTPUT_HANDLE, out);
    writeOutput(STD_OUTPUT_HANDLE, L"é \x4E2D");
    SetStdHandle(STD_OUTPUT_HANDLE, nullptr);
    EXPECT_NO_THROW(writeOutput(STD_OUTPUT_HANDLE, L"nobody takes this"));
    SetStdHandle(STD_OUTPUT_HANDLE, usual);
    CloseHandle(out);
    EXPECT_EQ(support::readFile(file), "\xC3\xA9 \xE4\xB8\xAD");
}

}
