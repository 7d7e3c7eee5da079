// The ini file as a file.
#include "check/ini_file_findings.h"
#include "check_fixture.h"

#include "automation/system_message.h"

#include <limits>

namespace hublink::check {

namespace {

const IniTexts& texts = english.ini;
constexpr int allBooks = std::numeric_limits<int>::max();

class CheckIniFile : public testing::Test {
protected:
    // What is told of the file's place and writing.
    Findings found(int books = allBooks) const
    {
        Findings findings;
        const IniReading reading = readIni(place, texts, findings);
        if (!reading.file.empty()) append(findings, writingFindings(reading.document, books, texts));
        return findings;
    }

    Findings remarksOn(std::string_view content, int books = allBooks) const
    {
        support::writeFile(place.file, content);
        return remarks(found(books));
    }

    const support::ScratchFolder folder;
    const std::wstring connector = folder.folder(L"Connector");
    IniPlace place{connector, connector + L"\\pavexconnector.ini", L""};
};

using Remarks = Findings;

}

TEST_F(CheckIniFile, DefaultFile_IsInOrder)
{
    EXPECT_EQ(remarksOn(support::readFile(support::projectFile(L"packaging/pavexconnector.ini"))), Remarks{});
    EXPECT_EQ(found(), (Findings{ok(texts.file, path(place.file)), ok(texts.ansi)}));
}

TEST_F(CheckIniFile, Missing_IsAProblem)
{
    EXPECT_EQ(found(), (Findings{problem(texts.missing, path(place.file))}));
}

TEST_F(CheckIniFile, MissingBeforeTheFirstStart_IsANote_AndTheDefaultOneIsRead)
{
    place.defaultFile = folder.write(L"default.ini", "[Application]\r\nkil=false\r\n");
    const Findings findings = found();
    EXPECT_EQ(findings.front(), note(texts.toBeInstalled, path(place.file)));
    EXPECT_TRUE(holds(findings, problem(texts.likelyKey, L"Application", personal(L"kil"), std::size_t{2}, L"kill")));
}

TEST_F(CheckIniFile, ConnectorFolderMissing_IsAProblem_AlsoWithADefaultFile)
{
    place.defaultFile = folder.write(L"default.ini", "[Application]\r\n");
    RemoveDirectoryW(connector.c_str());
    EXPECT_EQ(found(), (Findings{problem(texts.noFolder, path(connector))}));
}

TEST_F(CheckIniFile, FileInPlaceOfTheConnectorFolder_IsAProblem)
{
    RemoveDirectoryW(connector.c_str());
    support::writeFile(connector, "");
    EXPECT_EQ(found(), (Findings{problem(texts.fileInPlaceOfFolder, path(connector))}));
}

TEST_F(CheckIniFile, SoftphonesFolderUnknown_IsAProblem)
{
    place = {L"", L"\\Connector\\pavexconnector.ini", L""};
    EXPECT_EQ(found(), (Findings{problem(texts.noSoftphone, path(place.file))}));
}

TEST_F(CheckIniFile, FolderInItsPlace_IsAProblem)
{
    CreateDirectoryW(place.file.c_str(), nullptr);
    EXPECT_EQ(found(), (Findings{problem(texts.isFolder, path(place.file))}));
}

TEST_F(CheckIniFile, KeptByAnotherProgram_IsAProblem)
{
    support::writeFile(place.file, "[Application]\r\n");
    const HANDLE holder = CreateFileW(place.file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    const Findings findings = found();
    CloseHandle(holder);
    EXPECT_EQ(findings, (Findings{problem(texts.unreadable, path(place.file),
                                          automation::systemMessage(ERROR_SHARING_VIOLATION))}));
    EXPECT_TRUE(findings[0].what.full.ends_with(L" (32)."));
}

// As a path between quotation marks has them.
TEST_F(CheckIniFile, PathThatNoFileCanHave_IsMissing)
{
    place.connectorFolder = L"\"" + folder.path() + L"\"\\Connector";
    place.file = place.connectorFolder + L"\\pavexconnector.ini";
    EXPECT_EQ(found(), (Findings{problem(texts.noFolder, path(place.connectorFolder))}));
}

TEST_F(CheckIniFile, BeyondTheCodePage_IsAProblem)
{
    place.file = connector + L"\\\x4E2D.ini";
    EXPECT_EQ(found(), (Findings{problem(texts.beyondCodePage, path(place.file))}));
}

TEST_F(CheckIniFile, OfAMegabyte_IsRead_AndOneLargerThanFourIsNot)
{
    std::string large = "[Application]\r\ntype=OUTLOOK\r\n";
    while (large.size() < 1'000'000) large += "; a comment that goes on and on\r\n";
    EXPECT_EQ(remarksOn(large), Remarks{});
    large.resize(maxIniSize + 1, ';');
    EXPECT_EQ(remarksOn(large), (Remarks{problem(texts.tooLarge, path(place.file))}));
}

TEST_F(CheckIniFile, BinaryNoise_IsOneProblem)
{
    std::string noise;
    for (unsigned index = 0; index < 1'000'000; ++index) noise += static_cast<char>(index * 2654435761u >> 13);
    EXPECT_EQ(remarksOn(noise), (Remarks{problem(texts.notText)}));
}

TEST_F(CheckIniFile, AControlCharacter_IsANote_AndWhatStandsBehindItIsRead)
{
    EXPECT_EQ(remarksOn("[Application]\n; page one \f\ntype=OUTLOOK\nkil=false\n"),
              (Remarks{note(texts.controlCharacter, std::size_t{2}),
                       problem(texts.likelyKey, L"Application", personal(L"kil"), std::size_t{4}, L"kill")}));
}

TEST_F(CheckIniFile, EncodingsThatWindowsDoesNotRead_AreProblems)
{
    EXPECT_EQ(remarksOn("\xEF\xBB\xBF[Application]\r\ntype=OUTLOOK\r\n"), (Remarks{problem(texts.utf8Mark)}));
    EXPECT_EQ(remarksOn("\xEF\xBB\xBF; comment\r\n[Application]\r\n"), Remarks{});
    EXPECT_EQ(remarksOn(std::string("\xFE\xFF\0[\0a\0]", 8)), (Remarks{problem(texts.utf16Reversed)}));
    EXPECT_EQ(remarksOn(support::utf16File(L"[outlook]\r\nCallBackMailSyntaxe=\x4E2D\r\n")),
              (Remarks{problem(texts.lostCharacters)}));
    EXPECT_EQ(remarksOn(support::utf16File(L"[outlook]\r\nCallBackMailSyntaxe=é\r\n")), Remarks{});
}

TEST_F(CheckIniFile, SectionTwice_IsAProblem_InAnyCase)
{
    EXPECT_EQ(remarksOn("[outlook]\n[Application]\n[OUTLOOK]\nlanguage=0\n"),
              (Remarks{problem(texts.sectionTwice, L"OUTLOOK", std::size_t{1}, std::size_t{3})}));
}

TEST_F(CheckIniFile, KeyTwice_IsAProblem_InAnyCase)
{
    EXPECT_EQ(remarksOn("[Application]\ntempo=1\nTEMPO=2\n"),
              (Remarks{problem(texts.keyTwice, L"Application", L"TEMPO", std::size_t{2}, std::size_t{3})}));
}

TEST_F(CheckIniFile, UnknownSectionAndKey_AreNotes_AndTheirNamesAreNotPassedOn)
{
    const Findings findings = remarksOn("[Anna Keller]\nx=1\n[outlook]\nAnna=0123\n");
    EXPECT_EQ(findings, (Remarks{note(texts.unknownSection, personal(L"Anna Keller"), std::size_t{1}),
                                 note(texts.unknownKey, L"outlook", personal(L"Anna"), std::size_t{4})}));
    for (const Finding& each : findings) EXPECT_EQ(each.what.discreet.find(L"Anna"), std::wstring::npos);
}

TEST_F(CheckIniFile, MisspeltKey_IsAProblem_WithWhatIsMeant)
{
    EXPECT_EQ(remarksOn("[AllApplication]\nPop-Up=true\n"),
              (Remarks{problem(texts.likelyKey, L"AllApplication", personal(L"Pop-Up"), std::size_t{2}, L"PopUp")}));
}

TEST_F(CheckIniFile, KeyInTheWrongSection_IsAProblem_WithItsOwn)
{
    EXPECT_EQ(remarksOn("[Application]\nPopUp=true\n"),
              (Remarks{problem(texts.keyElsewhere, L"Application", L"PopUp", std::size_t{2}, L"AllApplication")}));
}

TEST_F(CheckIniFile, BookThatIsNotCounted_IsANote)
{
    const std::string books = "[lotus base description 1]\nbase=\n[Lotus Base Description 2]\nbase=\n";
    EXPECT_EQ(remarksOn(books, 2), Remarks{});
    EXPECT_EQ(remarksOn(books, 1), (Remarks{note(texts.bookNotCounted, L"Lotus Base Description 2", std::size_t{3})}));
}

TEST_F(CheckIniFile, NumberOfABook_ThatMayBeATelephoneNumber_IsNotPassedOn)
{
    const std::string content = "[lotus base description 0612345678]\nbase=\nbase=\nbas=\n";
    for (const int books : {allBooks, 1}) {
        const Findings findings = remarksOn(content, books);
        EXPECT_FALSE(findings.empty());
        for (const Finding& each : findings) EXPECT_EQ(each.what.discreet.find(L"06"), std::wstring::npos);
    }
    EXPECT_EQ(remarksOn("[lotus base description 100]\nbase=\n", 1),
              (Remarks{note(texts.bookNotCounted, L"lotus base description 100", std::size_t{1})}));
}

TEST_F(CheckIniFile, ValueThatIsCut_IsAProblem)
{
    EXPECT_EQ(remarksOn("[outlook]\nCallBackMailSyntaxe=" + std::string(1023, 'x')), Remarks{});
    EXPECT_EQ(remarksOn("[outlook]\nCallBackMailSyntaxe=" + std::string(1024, 'x')),
              (Remarks{problem(texts.cut, L"outlook", L"CallBackMailSyntaxe")}));
}

TEST_F(CheckIniFile, ThousandsOfUnknownThings_MakeNoEndlessReport)
{
    std::string content;
    for (int k = 0; k < 20'000; ++k) content += "[s" + std::to_string(k) + "]\nword\n";
    EXPECT_LT(remarksOn(content).size(), 300u);
}

TEST_F(CheckIniFile, AsManyAsAreListed_AreNotSaidToBeMore)
{
    std::string content;
    for (int k = 0; k < 199; ++k) content += "[s" + std::to_string(k) + "]\n"; // the writing is told too
    EXPECT_EQ(remarksOn(content).size(), 199u);
    EXPECT_EQ(remarksOn(content + "[one more]\n").back(), note(texts.moreLeftOut));
    EXPECT_EQ(remarksOn(content + "[one more]\n").size(), 200u);
}

// A look at all keys for each one would not come to its end here.
TEST_F(CheckIniFile, HundredThousandsOfUnknownKeys_MakeNoEndlessReport)
{
    std::string content = "[outlook]\n";
    for (int k = 0; k < 200'000; ++k) content += "unknown" + std::to_string(k) + "=1\n";
    const Findings findings = remarksOn(content);
    EXPECT_LT(findings.size(), 300u);
    EXPECT_EQ(findings.back(), note(texts.moreLeftOut));
    EXPECT_LT(remarksOn(content + content).size(), 300u);
}

TEST_F(CheckIniFile, HundredThousandsOfBooks_MakeNoEndlessReport)
{
    std::string content;
    for (int k = 0; k < 100'000; ++k) content += "[lotus base description " + std::to_string(k) + "]\n";
    EXPECT_EQ(remarksOn(content), Remarks{});
}

}
