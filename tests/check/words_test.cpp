// Texts with gaps, and what of them is passed on.
#include "check_fixture.h"

namespace hublink::check {

namespace {

// Environment variables, as before at the end.
class SavedEnvironment {
public:
    SavedEnvironment(const wchar_t* name, const wchar_t* value) : name_(name)
    {
        wchar_t before[1024];
        before_.assign(before, GetEnvironmentVariableW(name, before, 1024));
        SetEnvironmentVariableW(name, value);
    }
    ~SavedEnvironment() { SetEnvironmentVariableW(name_, before_.c_str()); }
    SavedEnvironment(const SavedEnvironment&) = delete;
    SavedEnvironment& operator=(const SavedEnvironment&) = delete;

private:
    const wchar_t* name_;
    std::wstring before_;
};

class PathOfAnna : public testing::Test {
protected:
    const SavedEnvironment name{L"USERNAME", L"Anna"};
    const SavedEnvironment profile{L"USERPROFILE", L"C:\\Users\\anna.keller"};
};

}

TEST(Words, Gaps_AreFilledWhereTheyStand)
{
    EXPECT_EQ(filled(L"{2} before {1}, {2}", {L"a", std::size_t{7}}).full, L"7 before a, 7");
    EXPECT_EQ(filled(L"none", {}).full, L"none");
}

TEST(Words, WhatFillsAGap_IsNotLookedAtAgain)
{
    EXPECT_EQ(filled(L"{1} {2}", {L"{2}", L"b"}).full, L"{2} b");
}

TEST(Words, BracesThatAreNoGap_Stay)
{
    EXPECT_EQ(filled(L"{0} {3} {x {1", {L"a", L"b"}).full, L"{0} {3} {x {1");
}

TEST(Words, Personal_IsShownToTheUser_AndNotPassedOn)
{
    const Words words = filled(L"The user is {1}.", {personal(L"anna")});
    EXPECT_EQ(words.full, L"The user is anna.");
    EXPECT_EQ(words.discreet, L"The user is ***.");
}

TEST_F(PathOfAnna, FoldersThatBearTheUsersName_AreNotPassedOn)
{
    EXPECT_EQ(path(L"C:\\Users\\anna.keller\\AppData\\x.map").discreet, L"C:\\Users\\***\\AppData\\x.map");
    EXPECT_EQ(path(L"D:\\ANNA\\Pavex").discreet, L"D:\\***\\Pavex");
    EXPECT_EQ(path(L"D:\\files of Anna\\Pavex").discreet, L"D:\\***\\Pavex");
    EXPECT_EQ(path(L"C:\\Users\\anna.keller\\AppData\\x.map").full, L"C:\\Users\\anna.keller\\AppData\\x.map");
}

TEST_F(PathOfAnna, OtherFolders_ArePassedOn)
{
    EXPECT_EQ(path(L"C:\\Program Files\\Pavex").discreet, L"C:\\Program Files\\Pavex");
    EXPECT_EQ(path(L"").discreet, L"");
    EXPECT_EQ(path(L"pavex.exe").discreet, L"pavex.exe");
}

TEST_F(PathOfAnna, ServerOfASharedFolder_IsNotPassedOn)
{
    EXPECT_EQ(path(L"\\\\acme-files\\homes\\x.map").discreet, L"\\\\***\\homes\\x.map");
    EXPECT_EQ(path(L"//acme-files/homes/x.map").discreet, L"//***/homes/x.map");
    EXPECT_EQ(path(L"\\\\?\\UNC\\acme-files\\homes\\x.map").discreet, L"\\\\?\\UNC\\***\\homes\\x.map");
}

TEST_F(PathOfAnna, FoldersOfOtherUsers_AreNotPassedOn)
{
    EXPECT_EQ(path(L"C:\\users\\jean.petit\\AppData\\x.map").discreet, L"C:\\users\\***\\AppData\\x.map");
    EXPECT_EQ(path(L"C:/Users/jean.petit/x.map").discreet, L"C:/Users/***/x.map");
    EXPECT_EQ(path(L"C:\\Documents and Settings\\Jean Petit").discreet, L"C:\\Documents and Settings\\***");
    EXPECT_EQ(path(L"D:\\Dokumente und Einstellungen\\jean.petit\\x").discreet,
              L"D:\\Dokumente und Einstellungen\\***\\x");
    EXPECT_EQ(path(L"C:\\DOCUME~1\\JEANPE~1\\LOCALS~1\\x.map").discreet, L"C:\\DOCUME~1\\***\\LOCALS~1\\x.map");
    EXPECT_EQ(path(L"\\\\?\\C:\\Users\\jean.petit\\x.map").discreet, L"\\\\?\\C:\\Users\\***\\x.map");
}

TEST_F(PathOfAnna, FoldersOfNobody_ArePassedOn)
{
    for (const wchar_t* each : {L"C:\\Users\\Public\\Pavex", L"C:\\Users\\Default\\x",
                                L"C:\\Documents and Settings\\All Users\\x", L"C:\\Users", L"C:\\Users\\"})
        EXPECT_EQ(path(each).discreet, each);
}

TEST_F(PathOfAnna, ShortNames_AreNotPassedOn_ButThoseOfWindowsOwnFolders)
{
    EXPECT_EQ(path(L"D:\\JEANPE~1\\x.ini").discreet, L"D:\\***\\x.ini");
    EXPECT_EQ(path(L"C:\\PROGRA~1\\MICROS~2\\OUTLOOK.EXE").discreet, L"C:\\PROGRA~1\\MICROS~2\\OUTLOOK.EXE");
    EXPECT_EQ(path(L"D:\\files~\\~x\\x~y.ini").discreet, L"D:\\files~\\~x\\x~y.ini");
}

TEST(Path, UserWithAShortName_HidesOnlyFoldersOfThatName)
{
    const SavedEnvironment name(L"USERNAME", L"Al");
    const SavedEnvironment profile(L"USERPROFILE", L"C:\\Users\\Al");
    EXPECT_EQ(path(L"C:\\Users\\al\\Local\\x.map").discreet, L"C:\\Users\\***\\Local\\x.map");
}

TEST(Texts, French_IsForEveryKindOfFrench_AndEnglishForAllOthers)
{
    EXPECT_EQ(&textsOf(MAKELANGID(LANG_FRENCH, SUBLANG_FRENCH)), &french);
    EXPECT_EQ(&textsOf(MAKELANGID(LANG_FRENCH, SUBLANG_FRENCH_CANADIAN)), &french);
    EXPECT_EQ(&textsOf(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_UK)), &english);
    EXPECT_EQ(&textsOf(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN)), &english);
}

}
