// In which language the journal is written.
#include "check/dictionary_language.h"
#include "check_fixture.h"

namespace hublink::check {

namespace {

const DictionaryTexts& texts = english.dictionary;

class CheckDictionary : public testing::Test {
protected:
    CheckDictionary() { folder.folder(L"dictionary"); }

    void writeLanguage(const wchar_t* number) const
    {
        folder.write(std::wstring(L"dictionary\\") + number + L".ini",
                     support::utf16File(L"[history]\r\nTI_NAMECALL_UNKNOWN=nobody\r\n"));
    }

    std::wstring languageFile(const wchar_t* number) const
    {
        return folder.path() + L"\\dictionary\\" + number + L".ini";
    }

    Findings found(const std::string& language) const
    {
        ProgramSettings settings(folder.path());
        settings.read(folder.write(L"x.ini", "[Application]\r\ntype=OUTLOOK\r\n[outlook]\r\nlanguage=" + language));
        return dictionaryFindings(dictionaryFacts(settings, folder.path()), texts);
    }

    const support::ScratchFolder folder;
};

}

TEST_F(CheckDictionary, ChosenLanguageWithAFile_IsInOrder)
{
    writeLanguage(L"1036");
    EXPECT_EQ(found("1036"),
              (Findings{ok(texts.chosenLanguage, L"1036"), ok(texts.file, path(languageFile(L"1036")))}));
}

TEST_F(CheckDictionary, UsersOwnLanguage_IsTold)
{
    const std::wstring own = std::to_wstring(GetUserDefaultUILanguage());
    writeLanguage(own.c_str());
    EXPECT_EQ(found("0"), (Findings{ok(texts.usersLanguage, own), ok(texts.file, path(languageFile(own.c_str())))}));
}

TEST_F(CheckDictionary, LanguageWithoutAFile_IsANote_WithTheOneThatServes)
{
    writeLanguage(L"1033");
    EXPECT_EQ(remarks(found("1043")), (Findings{note(texts.otherLanguage, path(languageFile(L"1033")))}));
}

TEST_F(CheckDictionary, NoFileAtAll_IsAProblem)
{
    EXPECT_EQ(remarks(found("1036")), (Findings{problem(texts.none)}));
}

TEST_F(CheckDictionary, FileWithoutTexts_IsAProblem)
{
    folder.write(L"dictionary\\1036.ini", "junk");
    EXPECT_EQ(remarks(found("1036")), (Findings{problem(texts.withoutTexts, path(languageFile(L"1036")))}));
}

TEST_F(CheckDictionary, WithoutOutlook_IsNotLoaded)
{
    const ProgramSettings settings(folder.path());
    EXPECT_EQ(dictionaryFindings(dictionaryFacts(settings, folder.path()), texts), (Findings{ok(texts.notLoaded)}));
}

}
