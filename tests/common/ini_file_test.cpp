#include "common/ini_file.h"

#include "automation/owners.h"
#include "automation/text.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace hublink {

namespace {

class Ini : public testing::Test {
protected:
    IniFile with(std::string_view content) const { return IniFile(folder.write(L"test.ini", content)); }

    const support::ScratchFolder folder;
};

}

TEST_F(Ini, Value_IsReadWithoutRegardToTheCaseOfItsNames)
{
    const IniFile ini = with("[Application]\r\nTempo=250\r\n");
    EXPECT_EQ(ini.read("Application", "Tempo", "x"), L"250");
    EXPECT_EQ(ini.read("APPLICATION", "tempo", "x"), L"250");
}

TEST_F(Ini, MissingKeySectionOrFile_GivesTheDefault)
{
    const IniFile ini = with("[Application]\r\nTempo=250\r\nEmpty=\r\n");
    EXPECT_EQ(ini.read("Application", "tempo1", "20"), L"20");
    EXPECT_EQ(ini.read("AllApplication", "tempo", "20"), L"20");
    EXPECT_EQ(IniFile(folder.file(L"missing.ini")).read("Application", "tempo", "20"), L"20");
    EXPECT_EQ(ini.read("Application", "empty", "20"), L"") << "an empty value is there";
}

TEST_F(Ini, Sections_AreListedAsTheyStandInTheFile)
{
    EXPECT_EQ(with("[One]\r\na=1\r\n[two words]\r\n").sections(), (std::vector<std::wstring>{L"One", L"two words"}));
    EXPECT_EQ(with("").sections(), std::vector<std::wstring>{});
    EXPECT_EQ(IniFile(folder.file(L"missing.ini")).sections(), std::vector<std::wstring>{});
}

TEST_F(Ini, ManySections_AreAllListed)
{
    std::string content;
    std::vector<std::wstring> names;
    for (int index = 0; index < 2000; ++index) {
        content += "[section " + std::to_string(index) + "]\r\nk=v\r\n";
        names.push_back(L"section " + std::to_wstring(index));
    }
    EXPECT_EQ(with(content).sections(), names);
}

TEST_F(Ini, LongValue_IsCutTo1023Characters)
{
    const std::string exact(1023, 'a');
    EXPECT_EQ(with("[s]\r\nk=" + exact + "\r\n").read("s", "k", ""), std::wstring(1023, L'a'));
    EXPECT_EQ(with("[s]\r\nk=" + exact + "b\r\n").read("s", "k", ""), std::wstring(1023, L'a'));
    EXPECT_EQ(with("[s]\r\nk=" + std::string(5000, 'a') + "\r\n").read("s", "k", ""), std::wstring(1023, L'a'));
}

TEST_F(Ini, LongDefault_IsCutToo)
{
    const std::string fallback(1500, 'd');
    EXPECT_EQ(with("").read("s", "k", fallback.c_str()), std::wstring(1023, L'd'));
}

TEST_F(Ini, AnsiText_IsReadInTheCodePage)
{
    EXPECT_EQ(with("[s]\r\nk=r\xE9pondu\r\n").read("s", "k", ""), L"r\u00E9pondu");
}

TEST_F(Ini, Utf8Text_IsReadAsThat_AndTakesNoMarkToBeKnown)
{
    const IniFile ini = with("[s]\r\nk=r\xC3\xA9pondu \xE2\x82\xAC\r\nplain=abc\r\n");
    EXPECT_EQ(ini.read("s", "k", ""), L"r\u00E9pondu \u20AC");
    EXPECT_EQ(ini.read("s", "plain", ""), L"abc");
}

TEST_F(Ini, Utf8BeyondTheCodePage_IsReadWhole)
{
    EXPECT_EQ(with("[s]\r\nk=\xCE\xA9 \xF0\x9F\x93\x9E\r\n").read("s", "k", ""), L"\u03A9 \xD83D\xDCDE");
}

TEST_F(Ini, TextThatIsAlmostUtf8_IsAnsi)
{
    for (const char* bytes : {"\xE9", "r\xC3", "\xA9\xC3", "\xC3\xA9 r\xE9pondu", "\xC0\xAF", "\xED\xA0\x80"}) {
        const std::string text = std::string("[s]\r\nk=") + bytes + "x\r\n";
        EXPECT_EQ(with(text).read("s", "k", ""), automation::toWide(std::string(bytes) + "x"));
    }
}

TEST_F(Ini, LongUtf8Text_CutInTheMiddleOfACharacter_LosesThatCharacterOnly)
{
    for (const std::string letter : {"\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x93\x9E"})
        for (std::size_t before = 0; before < letter.size(); ++before) {
            std::string value(before, 'a');
            while (value.size() < 1100) value += letter;
            const std::wstring read = with("[s]\r\nk=" + value + "\r\n").read("s", "k", "");
            const std::size_t letters = (1023 - before) / letter.size();
            EXPECT_EQ(read.size(), before + letters * (letter.size() == 4 ? 2 : 1)) << letter << before;
        }
}

TEST_F(Ini, LongAnsiText_WhoseOnlySuchLetterIsTheLast_KeepsIt)
{
    const std::string value = std::string(1022, 'a') + "\xE9";
    EXPECT_EQ(with("[s]\r\nk=" + value + "\r\n").read("s", "k", ""), automation::toWide(value));
}

TEST_F(Ini, SectionNamesInUtf8_AreReadAsThat)
{
    EXPECT_EQ(with("[\xC3\xA9t\xC3\xA9]\r\nk=v\r\n").sections(), std::vector<std::wstring>{L"\u00E9t\u00E9"});
}

// Windows takes the mark for a part of the first line, and knows nothing of a
// section whose bracket stands behind it.
TEST_F(Ini, Utf8Mark_InFrontOfAComment_HidesNoSection)
{
    const IniFile ini = with("\xEF\xBB\xBF; settings\r\n[one]\r\nk=r\xC3\xA9pondu\r\n[two]\r\nk=2\r\n");
    EXPECT_EQ(ini.read("one", "k", ""), L"r\u00E9pondu");
    EXPECT_EQ(ini.read("two", "k", ""), L"2");
}

TEST_F(Ini, Utf8Mark_InFrontOfASection_HidesNoOther)
{
    EXPECT_EQ(with("\xEF\xBB\xBF[one]\r\nk=1\r\n[two]\r\nk=2\r\n").read("two", "k", ""), L"2");
}

TEST_F(Ini, Switch_IsOnForTheExactTextOnly)
{
    for (const char* text : {"True", "TRUE", "1", "yes", "-1", "truer", "\" true\"", "true ; on", ""})
        EXPECT_FALSE(with(std::string("[s]\r\nk=") + text + "\r\n").readSwitch("s", "k", "true")) << text;
    EXPECT_TRUE(with("[s]\r\nk=true\r\n").readSwitch("s", "k", "false"));
    EXPECT_TRUE(with("[s]\r\nk = true \r\n").readSwitch("s", "k", "false")) << "outer blanks belong to no value";
}

TEST_F(Ini, MissingSwitch_TakesItsDefault)
{
    EXPECT_TRUE(with("").readSwitch("s", "k", "true"));
    EXPECT_FALSE(with("").readSwitch("s", "k", "false"));
    EXPECT_FALSE(with("").readSwitch("s", "k", ""));
}

TEST_F(Ini, Write_ChangesTheValueAndNothingElse)
{
    const IniFile ini = with("[Application]\r\nkill=true\r\ntype=OUTLOOK\r\n");
    EXPECT_TRUE(ini.write("Application", "kill", "false"));
    EXPECT_EQ(ini.read("Application", "kill", ""), L"false");
    EXPECT_EQ(ini.read("Application", "type", ""), L"OUTLOOK");
}

TEST_F(Ini, Write_MakesAMissingFile_ButNoFolder)
{
    EXPECT_TRUE(IniFile(folder.file(L"new.ini")).write("s", "k", "v"));
    EXPECT_EQ(IniFile(folder.file(L"new.ini")).read("s", "k", ""), L"v");
    EXPECT_FALSE(IniFile(folder.file(L"nowhere\\new.ini")).write("s", "k", "v"));
}

TEST_F(Ini, FolderInItsPlace_GivesDefaultsAndRefusesToBeWritten)
{
    const IniFile ini(folder.folder(L"test.ini"));
    EXPECT_EQ(ini.read("s", "k", "default"), L"default");
    EXPECT_FALSE(ini.write("s", "k", "v"));
}

TEST_F(Ini, FileThatAnotherProgramKeepsToItself_GivesDefaults)
{
    const std::wstring path = folder.write(L"kept.ini", "[s]\r\nk=v\r\n");
    automation::Handle kept =
        automation::ownedIfValid(CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_EQ(IniFile(path).read("s", "k", "default"), L"default");
    EXPECT_FALSE(IniFile(path).write("s", "k", "other"));
    kept.reset();
    EXPECT_EQ(IniFile(path).read("s", "k", "default"), L"v");
}

TEST_F(Ini, BinaryJunk_GivesDefaults)
{
    std::string junk;
    for (int index = 0; index < 20'000; ++index) junk += static_cast<char>(index * 7 + index / 256);
    const IniFile ini = with(junk);
    EXPECT_EQ(ini.read("Application", "tempo", "200"), L"200");
    EXPECT_EQ(ini.read("", "", "200"), L"200");
}

TEST_F(Ini, JunkAroundASection_LeavesItReadable)
{
    const std::string junk = "\x01\x02[[]]==\r\n=\r\n]\r\n[\r\n";
    EXPECT_EQ(with(junk + "[s]\r\nk=v\r\n" + junk).read("s", "k", ""), L"v");
}

TEST_F(Ini, Utf16File_IsReadAsText)
{
    EXPECT_EQ(with(support::utf16File(L"[s]\r\nk=r\u00E9pondu\r\n")).read("s", "k", ""), L"r\u00E9pondu");
}

}
