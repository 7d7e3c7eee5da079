// HublinkCheck.exe on broken computers, in each of its languages.
#include "program_fixture.h"

#include "automation/system_message.h"
#include "check/ini_file_findings.h"
#include "convid/store_reading.h"

namespace hublink::check {

namespace {

class BrokenComputer : public CheckProgram {};

}

TEST_F(BrokenComputer, WithoutASoftphone_SaysSo_AndReadsNoIniFile)
{
    pavexPath.removeValue();
    pavexPath.removeKey();
    softphone.unregister();
    expectInBothLanguages(1, [](const Texts& texts) {
        return Findings{problem(texts.softphone.noFolder),
                        problem(texts.ini.noSoftphone, L"\\Connector\\pavexconnector.ini"),
                        problem(texts.classes.notRegistered, L"Pavex.Application"), note(texts.groupware.unknown)};
    });
    EXPECT_EQ(text.find(L"tempo"), std::wstring::npos);
}

TEST_F(BrokenComputer, WithRegistryValuesOfWrongTypes_SaysSo)
{
    pavexPath.setNumber(1);
    server.setNumber(2);
    user.setNumber(3);
    expectInBothLanguages(1, [](const Texts& texts) {
        return Findings{problem(texts.softphone.noFolder), note(texts.softphone.noServer),
                        note(texts.softphone.noUser)};
    });
}

TEST_F(BrokenComputer, WithEnvironmentVariablesInThePath_SaysSo)
{
    pavexPath.setExpandableText(pavex);
    expectInBothLanguages(1, [](const Texts& texts) { return Findings{problem(texts.softphone.folderUnreadable)}; });
}

TEST_F(BrokenComputer, WithTheSoftphonesFolderGone_SaysSo)
{
    const std::wstring gone = folder.file(L"gone");
    pavexPath.setText(gone);
    expectInBothLanguages(1, [&](const Texts& texts) {
        return Findings{problem(texts.softphone.folderMissing, path(gone)),
                        problem(texts.ini.noFolder, path(gone + L"\\Connector"))};
    });
}

TEST_F(BrokenComputer, WithoutTheSoftphonesProgram_SaysSo)
{
    DeleteFileW((pavex + L"\\pavex.exe").c_str());
    expectInBothLanguages(
        0, [&](const Texts& texts) { return Findings{note(texts.softphone.programMissing, path(pavex))}; });
}

TEST_F(BrokenComputer, WithAFileInPlaceOfTheConnectorFolder_SaysSo)
{
    DeleteFileW(ini.c_str());
    const std::wstring connector = pavex + L"\\Connector";
    RemoveDirectoryW(connector.c_str());
    support::writeFile(connector, "");
    expectInBothLanguages(
        1, [&](const Texts& texts) { return Findings{problem(texts.ini.fileInPlaceOfFolder, path(connector))}; });
}

TEST_F(BrokenComputer, WithAFolderInPlaceOfTheIniFile_SaysSo)
{
    DeleteFileW(ini.c_str());
    CreateDirectoryW(ini.c_str(), nullptr);
    expectInBothLanguages(1, [&](const Texts& texts) { return Findings{problem(texts.ini.isFolder, path(ini))}; });
}

TEST_F(BrokenComputer, WithAnIniFileThatOthersKeep_SaysSo)
{
    const automation::Handle holder =
        automation::ownedIfValid(CreateFileW(ini.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    expectInBothLanguages(1, [&](const Texts& texts) {
        return Findings{problem(texts.ini.unreadable, path(ini), automation::systemMessage(ERROR_SHARING_VIOLATION))};
    });
}

TEST_F(BrokenComputer, WithATooLargeIniFile_SaysSo)
{
    writeIni(std::string(maxIniSize + 1, ';'));
    expectInBothLanguages(1, [&](const Texts& texts) { return Findings{problem(texts.ini.tooLarge, path(ini))}; });
}

TEST_F(BrokenComputer, WithAnIniFileInAnotherWriting_SaysSo)
{
    writeIni(std::string("MZ\x90\0\3\0\0\0", 8));
    expectInBothLanguages(1, [](const Texts& texts) { return Findings{problem(texts.ini.notText)}; });
    writeIni("\xEF\xBB\xBF[Application]\r\ntype=OUTLOOK\r\n");
    expectInBothLanguages(1, [](const Texts& texts) { return Findings{problem(texts.ini.utf8Mark)}; });
    writeIni(std::string("\xFE\xFF\0[\0a\0]", 8));
    expectInBothLanguages(1, [](const Texts& texts) { return Findings{problem(texts.ini.utf16Reversed)}; });
    writeIni(support::utf16File(L"[outlook]\r\nCallBackMailSyntaxe=\x4E2D\r\n"));
    expectInBothLanguages(1, [](const Texts& texts) { return Findings{problem(texts.ini.lostCharacters)}; });
}

TEST_F(BrokenComputer, WithABrokenIniFile_SaysWhatIsWrong)
{
    writeIni("[Application]\r\ntype=OUTLOOK, LOTUS\r\ntype=LOTUS\r\n[AllApplication]\r\nPopUp=True\r\n"
             "Repertori=true\r\ntempo=5\r\n[AllApplication]\r\n[others]\r\nword\r\n; \f\r\n[outlook]\r\n"
             "CallBackMailSyntaxe=" +
             std::string(1'024, 'x') + "\r\nlanguage=french\r\n");
    using std::size_t;
    expectInBothLanguages(1, [](const Texts& all) {
        const IniTexts& texts = all.ini;
        return Findings{problem(texts.keyTwice, L"Application", L"type", size_t{2}, size_t{3}),
                        problem(texts.unknownGroupware, L"type", L" LOTUS"),
                        problem(texts.offThoughMeantOn, L"AllApplication", L"PopUp", L"True"),
                        problem(texts.likelyKey, L"AllApplication", L"Repertori", size_t{6}, L"Repertory"),
                        problem(texts.keyElsewhere, L"AllApplication", L"tempo", size_t{7}, L"Application"),
                        problem(texts.sectionTwice, L"AllApplication", size_t{4}, size_t{8}),
                        note(texts.unknownSection, L"others", size_t{9}),
                        note(texts.strayLine, size_t{10}),
                        note(texts.controlCharacter, size_t{11}),
                        problem(texts.cut, L"outlook", L"CallBackMailSyntaxe"),
                        problem(texts.notNumber, L"outlook", L"language", L"french")};
    });
}

TEST_F(BrokenComputer, WithoutAGroupware_SaysSo)
{
    writeIni("[Application]\r\ntype=\r\nkill=true\r\n");
    expectInBothLanguages(1, [](const Texts& texts) {
        return Findings{problem(texts.ini.noGroupware), note(texts.ini.stopRequest), ok(texts.groupware.none)};
    });
}

TEST_F(BrokenComputer, WithBrokenSettingsOfNotes_SaysWhatIsWrong)
{
    const std::string notes = "[Application]\r\ntype=LOTUS\r\n[lotus]\r\n";
    writeIni(notes);
    expectInBothLanguages(1, [](const Texts& texts) {
        return Findings{problem(texts.ini.readingEnds, L"NbPublicAddressBook"),
                        problem(texts.classes.notRegistered, L"Notes.NotesSession")};
    });
    writeIni(notes + "NbPublicAddressBook=2\r\nOrder=Base 1\r\n[lotus base description 1]\r\nbase=a|b\r\n"
                     "[lotus base description 3]\r\n");
    expectInBothLanguages(1, [](const Texts& all) {
        const IniTexts& texts = all.ini;
        return Findings{problem(texts.baseParts, L"lotus base description 1", L"base"),
                        problem(texts.bookNotDescribed, L"lotus base description 2"),
                        note(texts.bookNotCounted, L"lotus base description 3", std::size_t{8}),
                        note(texts.bookWithoutViews, std::size_t{1}), note(texts.noPersonalBook)};
    });
}

TEST_F(BrokenComputer, WithoutTheDatabasesOfNotes_SaysSo)
{
    const support::SavedValue data(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Lotus\\Notes\\5.0", L"DataPath");
    data.setText(folder.path());
    writeIni("[Application]\r\ntype=LOTUS\r\n[lotus]\r\nNbPublicAddressBook=1\r\nOrder=Base 1\r\n"
             "[lotus base description 1]\r\nbase=names.nsf||Contacts||\r\n"
             "[lotus call log description]\r\nbase=pavexhistory.nsf||Calls||\r\n"
             "[lotus personnel log description]\r\nbase=pavexconnectorconfig.nsf||||\r\n");
    expectInBothLanguages(1, [](const Texts& texts) {
        return Findings{problem(texts.notesData.historyMissing, L"pavexhistory.nsf"),
                        problem(texts.notesData.logMissing, L"pavexconnectorconfig.nsf")};
    });
}

TEST_F(BrokenComputer, WithoutOutlook_SaysSo)
{
    outlook.unregister();
    expectInBothLanguages(
        1, [](const Texts& texts) { return Findings{problem(texts.classes.notRegistered, L"Outlook.Application")}; });
}

TEST_F(BrokenComputer, WithOutlooksProgramGone_SaysSo)
{
    const std::wstring gone = folder.file(L"gone.exe");
    outlook.setProgram(gone);
    expectInBothLanguages(1, [&](const Texts& texts) {
        return Findings{problem(texts.classes.serverMissing, L"Outlook.Application", path(gone))};
    });
}

TEST_F(BrokenComputer, WithAFolderInPlaceOfTheMap_SaysSo)
{
    CreateDirectoryW(map.c_str(), nullptr);
    expectInBothLanguages(1, [](const Texts& texts) {
        return Findings{problem(texts.map.unreadable, automation::systemMessage(ERROR_ACCESS_DENIED))};
    });
    RemoveDirectoryW(map.c_str());
}

TEST_F(BrokenComputer, WithAFileInPlaceOfTheMapsFolder_SaysSo)
{
    const std::wstring place = map.substr(0, map.rfind(L'\\'));
    const std::wstring aside = place + L" aside";
    ASSERT_TRUE(MoveFileExW(place.c_str(), aside.c_str(), 0));
    support::writeFile(place, "");
    expectInBothLanguages(
        1, [&](const Texts& texts) { return Findings{problem(texts.rights.fileInPlaceOfMapFolder, path(place))}; });
    DeleteFileW(place.c_str());
    MoveFileExW(aside.c_str(), place.c_str(), 0);
}

TEST_F(BrokenComputer, WithABrokenMap_SaysSo)
{
    support::writeFile(map, "damaged");
    expectInBothLanguages(1, [](const Texts& texts) { return Findings{problem(texts.map.damaged, std::size_t{0})}; });
}

}
