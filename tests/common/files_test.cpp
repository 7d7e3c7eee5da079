#include "common/files.h"

#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace hublink {

namespace {

class Files : public testing::Test {
protected:
    const support::ScratchFolder folder;
    const std::wstring program = folder.folder(L"program");
    const std::wstring target = folder.folder(L"target");

    void copy() const { CopieFileIfNotExist(target, L"settings.ini", program); }
};

}

TEST_F(Files, FileOrFolder_Exists)
{
    EXPECT_TRUE(FileExist(folder.write(L"here.txt", "x")));
    EXPECT_TRUE(FileExist(target));
}

TEST_F(Files, MissingFileAndInvalidPath_DoNotExist)
{
    EXPECT_FALSE(FileExist(folder.file(L"missing.txt")));
    EXPECT_FALSE(FileExist(folder.file(L"nowhere\\missing.txt")));
    EXPECT_FALSE(FileExist(L""));
    EXPECT_FALSE(FileExist(L"<>|?*"));
    EXPECT_FALSE(FileExist(L"Q:\\" + std::wstring(40'000, L'a')));
}

TEST_F(Files, MissingTarget_BecomesAWritableCopy_EvenOfAReadOnlySource)
{
    folder.write(L"program\\settings.ini", "content");
    SetFileAttributesW((program + L"\\settings.ini").c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
    copy();
    EXPECT_EQ(support::readFile(target + L"\\settings.ini"), "content");
    EXPECT_EQ(GetFileAttributesW((target + L"\\settings.ini").c_str()) &
                  (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN),
              0u);
}

TEST_F(Files, ExistingTarget_IsNotTouched)
{
    folder.write(L"program\\settings.ini", "new");
    folder.write(L"target\\settings.ini", "old");
    SetFileAttributesW((target + L"\\settings.ini").c_str(), FILE_ATTRIBUTE_READONLY);
    copy();
    EXPECT_EQ(support::readFile(target + L"\\settings.ini"), "old");
    EXPECT_NE(GetFileAttributesW((target + L"\\settings.ini").c_str()) & FILE_ATTRIBUTE_READONLY, 0u);
}

TEST_F(Files, MissingSource_IsSwallowed)
{
    copy();
    EXPECT_FALSE(FileExist(target + L"\\settings.ini"));
}

TEST_F(Files, MissingTargetFolder_IsSwallowed_AndNotMade)
{
    folder.write(L"program\\settings.ini", "content");
    CopieFileIfNotExist(folder.file(L"nowhere"), L"settings.ini", program);
    EXPECT_FALSE(FileExist(folder.file(L"nowhere")));
}

}
