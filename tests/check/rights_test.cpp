// Where Hublink may write.
#include "check/rights.h"
#include "check_fixture.h"

namespace hublink::check {

namespace {

const RightsTexts& texts = english.rights;

RightsFacts allWritable()
{
    return {L"C:\\C", Access::writable, L"C:\\C\\x.ini", Access::writable,
            L"C:\\H", Access::writable, L"C:\\H\\m.map", Access::writable};
}

}

TEST(Access, OfFilesAndFolders_IsToldWithoutAChange)
{
    const support::ScratchFolder folder;
    const std::wstring file = folder.write(L"x", "content");
    WIN32_FILE_ATTRIBUTE_DATA before, after;
    GetFileAttributesExW(file.c_str(), GetFileExInfoStandard, &before);
    EXPECT_EQ(accessToFile(file), Access::writable);
    EXPECT_EQ(accessToFolder(folder.path()), Access::writable);
    GetFileAttributesExW(file.c_str(), GetFileExInfoStandard, &after);
    EXPECT_EQ(CompareFileTime(&before.ftLastWriteTime, &after.ftLastWriteTime), 0);
    EXPECT_EQ(support::readFile(file), "content");
}

TEST(Access, ToAWriteProtectedFile_IsRefused)
{
    const support::ScratchFolder folder;
    const std::wstring file = folder.write(L"x", "content");
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(accessToFile(file), Access::refused);
}

TEST(Access, ToWhatIsNotThere_IsMissing)
{
    const support::ScratchFolder folder;
    EXPECT_EQ(accessToFile(folder.file(L"x")), Access::missing);
    EXPECT_EQ(accessToFolder(folder.file(L"x")), Access::missing);
    EXPECT_EQ(accessToFile(folder.path()), Access::missing) << "a folder";
    EXPECT_EQ(accessToFile(L""), Access::missing);
    EXPECT_EQ(accessToFolder(L""), Access::missing);
}

TEST(Access, ToAFileInPlaceOfAFolder_IsToldAsThat)
{
    const support::ScratchFolder folder;
    EXPECT_EQ(accessToFolder(folder.write(L"y", "")), Access::fileInPlace);
}

// Whoever only looks must be in nobody's way.
TEST(Access, ToAFileThatOthersKeepFromWriting_IsToldAllTheSame)
{
    const support::ScratchFolder folder;
    const std::wstring file = folder.write(L"x", "");
    const HANDLE holder = CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(accessToFile(file), Access::writable);
    CloseHandle(holder);
}

TEST(CheckRights, EverythingWritable_IsInOrder)
{
    EXPECT_EQ(rightsFindings(allWritable(), texts),
              (Findings{ok(texts.writable, path(L"C:\\C\\x.ini")), ok(texts.writable, path(L"C:\\H")),
                        ok(texts.writable, path(L"C:\\H\\m.map")), ok(texts.noLogFile)}));
}

TEST(CheckRights, IniFileRefused_IsANote)
{
    RightsFacts facts = allWritable();
    facts.ini = Access::refused;
    EXPECT_EQ(remarks(rightsFindings(facts, texts)), (Findings{note(texts.iniFile, path(L"C:\\C\\x.ini"))}));
}

TEST(CheckRights, ConnectorFolderRefused_IsAProblem_WhileTheIniFileIsMissing)
{
    RightsFacts facts = allWritable();
    facts.connector = Access::refused;
    EXPECT_EQ(remarks(rightsFindings(facts, texts)), Findings{});
    facts.ini = Access::missing;
    EXPECT_EQ(remarks(rightsFindings(facts, texts)), (Findings{problem(texts.connectorFolder, path(L"C:\\C"))}));
}

TEST(CheckRights, MapRefused_IsAProblem)
{
    RightsFacts facts = allWritable();
    facts.map = facts.mapStore = Access::refused;
    EXPECT_EQ(remarks(rightsFindings(facts, texts)),
              (Findings{problem(texts.mapFolder, path(L"C:\\H")), problem(texts.mapFile, path(L"C:\\H\\m.map"))}));
}

TEST(CheckRights, MapsFolderMissing_IsMadeWhenNeeded)
{
    RightsFacts facts = allWritable();
    facts.map = facts.mapStore = Access::missing;
    EXPECT_TRUE(holds(rightsFindings(facts, texts), ok(texts.madeWhenNeeded, path(L"C:\\H"))));
}

TEST(CheckRights, FileInPlaceOfTheMapsFolder_IsAProblem)
{
    const support::ScratchFolder folder;
    const std::wstring file = folder.write(L"Hublink", "");
    const RightsFacts facts = rightsFacts(ProgramSettings(folder.path()), L"", L"", file + L"\\identifiers.map");
    EXPECT_EQ(remarks(rightsFindings(facts, texts)), (Findings{problem(texts.fileInPlaceOfMapFolder, path(file))}));
}

TEST(CheckRights, ExtensionThatMayNotBeRegistered_IsANote)
{
    RightsFacts facts = allWritable();
    facts.registersExtension = true;
    EXPECT_EQ(remarks(rightsFindings(facts, texts)), (Findings{note(texts.extensionKey)}));
    facts.extensionKeyIsWritable = true;
    EXPECT_TRUE(holds(rightsFindings(facts, texts), ok(texts.extensionKeyWritable)));
}

}
