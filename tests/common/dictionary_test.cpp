// The message dictionary: which file is chosen, and the contract of a read.
#include "common/dictionary.h"

#include "automation/owners.h"
#include "automation/text.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <set>

namespace hublink {

namespace {

constexpr const char* answered = "ST_FILTRE_LST2";

std::wstring elementOf(const Dictionary& dictionary, const char* key = answered)
{
    char buffer[260];
    const DWORD length = dictionary.GetElt("history", key, "default", buffer, sizeof buffer);
    return automation::toWide({buffer, length});
}

// A program folder with dictionaries made by the test.
class Dictionaries : public testing::Test {
protected:
    Dictionaries() { folder.folder(L"dictionary"); }

    void add(const wchar_t* language, std::wstring_view text) const
    {
        folder.write(L"dictionary\\" + std::wstring(language) + L".ini",
                     support::utf16File(L"; a comment\r\n[history]\r\nST_FILTRE_LST2=" + std::wstring(text) + L"\r\n"));
    }

    // The text that a language gives.
    std::wstring in(std::int32_t language)
    {
        dictionary.LoadDicoSelected(language);
        return elementOf(dictionary);
    }

    const support::ScratchFolder folder;
    Dictionary dictionary{folder.path()};
};

// The dictionaries that are shipped.
const std::set<std::wstring> languages{L"1031", L"1033", L"1034", L"1036", L"1040"};
const char* const keys[] = {"ST_FILTRE_LST1", "ST_FILTRE_LST2", "ST_FILTRE_LST3",     "ST_FILTRE_LST4",
                            "ST_FILTRE_LST5", "ST_FILTRE_LST6", "TI_NAMECALL_UNKNOWN"};

Dictionary shipped(const std::wstring& language)
{
    Dictionary dictionary(support::projectFile(L"packaging"));
    dictionary.LoadDicoSelected(std::stoi(language));
    return dictionary;
}

}

TEST_F(Dictionaries, SelectedLanguage_GivesItsTexts)
{
    add(L"1033", L"Incoming call answered");
    add(L"1036", L"Appel entrant r\u00E9pondu");
    EXPECT_EQ(in(1036), L"Appel entrant r\u00E9pondu");
    EXPECT_EQ(in(1033), L"Incoming call answered");
    EXPECT_EQ(dictionary.file(), folder.file(L"dictionary\\1033.ini"));
}

TEST_F(Dictionaries, LanguageZero_IsTheUsersOwn)
{
    const LANGID own = GetUserDefaultUILanguage();
    add(L"1036", L"French");
    add(std::to_wstring(own).c_str(), L"the user's own");
    EXPECT_EQ(in(0), L"the user's own");
    dictionary.LoadDicoSelected(1036);
    dictionary.LoadDico();
    EXPECT_EQ(elementOf(dictionary), L"the user's own");
}

TEST_F(Dictionaries, VariantOfALanguage_GivesItsMainForm)
{
    add(L"1033", L"English");
    add(L"1036", L"French");
    EXPECT_EQ(in(3084), L"French") << "Canada's French";
    add(L"3084", L"Canadian French");
    EXPECT_EQ(in(3084), L"Canadian French");
}

TEST_F(Dictionaries, UnknownLanguage_FallsBackToEnglish)
{
    add(L"1033", L"English");
    add(L"1036", L"French");
    EXPECT_EQ(in(1041), L"English");
    EXPECT_EQ(in(-1), L"English");
    EXPECT_EQ(in(32767), L"English");
}

TEST_F(Dictionaries, NeitherLanguageNorEnglish_GivesDefaults)
{
    add(L"1036", L"French");
    EXPECT_EQ(in(1036), L"French");
    EXPECT_EQ(in(1041), L"default") << "and not the language of before";
    EXPECT_EQ(dictionary.file(), L"");
}

TEST_F(Dictionaries, NothingLoaded_GivesDefaults)
{
    add(L"1033", L"English");
    EXPECT_EQ(elementOf(dictionary), L"default");
}

TEST_F(Dictionaries, MissingKeyOrSection_GivesTheDefault)
{
    add(L"1033", L"English");
    dictionary.LoadDicoSelected(1033);
    char buffer[16];
    EXPECT_EQ(elementOf(dictionary, "ST_FILTRE_LST9"), L"default");
    EXPECT_EQ(dictionary.GetElt("other", answered, "abc", buffer, sizeof buffer), 3u);
    EXPECT_STREQ(buffer, "abc");
}

TEST_F(Dictionaries, TextLongerThanTheBuffer_IsCutAndTerminated)
{
    add(L"1033", L"Incoming call answered");
    dictionary.LoadDicoSelected(1033);
    char buffer[12] = "xxxxxxxxxxx";
    EXPECT_EQ(dictionary.GetElt("history", answered, "", buffer, 9), 8u);
    EXPECT_STREQ(buffer, "Incoming");
    EXPECT_EQ(buffer[9], 'x') << "nothing is written past the size given";
    EXPECT_EQ(dictionary.GetElt("history", answered, "", buffer, 1), 0u);
    EXPECT_EQ(buffer[0], '\0');
}

TEST_F(Dictionaries, FolderOrJunkInPlaceOfAFile_GivesDefaults)
{
    folder.folder(L"dictionary\\1036.ini");
    folder.write(L"dictionary\\1031.ini", std::string("\xFF\xFE\x00\xD8[[[=\0\0\0", 11));
    EXPECT_EQ(in(1036), L"default");
    EXPECT_EQ(in(1031), L"default");
}

TEST(Dictionary, MissingFolder_GivesDefaults)
{
    const support::ScratchFolder folder;
    for (const std::wstring& missing : {folder.path(), folder.file(L"nowhere"), std::wstring()}) {
        Dictionary dictionary(missing);
        dictionary.LoadDico();
        dictionary.LoadDicoSelected(1036);
        EXPECT_EQ(elementOf(dictionary), L"default");
    }
}

TEST(ShippedDictionary, EveryLanguage_IsThere)
{
    std::set<std::wstring> found;
    WIN32_FIND_DATAW entry;
    const auto search = automation::ownedIfValid<automation::FileSearch>(
        FindFirstFileW(support::projectFile(L"packaging/dictionary/*.ini").c_str(), &entry));
    ASSERT_TRUE(search);
    do found.insert(std::wstring(entry.cFileName, wcschr(entry.cFileName, L'.')));
    while (FindNextFileW(search.get(), &entry));
    EXPECT_EQ(found, languages);
}

TEST(ShippedDictionary, EveryLanguage_HasEveryText_AndNoTwoAlike)
{
    for (const std::wstring& language : languages) {
        const Dictionary dictionary = shipped(language);
        EXPECT_EQ(dictionary.file(), support::projectFile(L"packaging") + L"\\dictionary\\" + language + L".ini");
        std::set<std::wstring> texts;
        for (const char* key : keys) {
            const std::wstring text = elementOf(dictionary, key);
            EXPECT_NE(text, L"default") << key;
            EXPECT_FALSE(text.empty()) << key;
            EXPECT_EQ(text.find(L'?'), std::wstring::npos) << key << ": a character outside the code page";
            EXPECT_TRUE(texts.insert(text).second) << key;
        }
    }
}

TEST(ShippedDictionary, Translations_DifferFromTheEnglishTexts)
{
    const Dictionary english = shipped(L"1033");
    for (const std::wstring& language : languages) {
        if (language == L"1033") continue;
        const Dictionary dictionary = shipped(language);
        for (const char* key : keys) EXPECT_NE(elementOf(dictionary, key), elementOf(english, key)) << key;
    }
}

TEST(ShippedDictionary, English_HasTheCallTypeTextsThemselves)
{
    const Dictionary english = shipped(L"1033");
    EXPECT_EQ(elementOf(english, "ST_FILTRE_LST4"), L"Incoming call unanswered");
    EXPECT_EQ(elementOf(english, "ST_FILTRE_LST6"), L"Incoming call acknowledged");
    EXPECT_EQ(elementOf(english, "ST_FILTRE_LST2"), L"Incoming call answered");
    EXPECT_EQ(elementOf(english, "ST_FILTRE_LST3"), L"Outgoing call unanswered");
    EXPECT_EQ(elementOf(english, "ST_FILTRE_LST5"), L"Outgoing call acknowledged");
    EXPECT_EQ(elementOf(english, "ST_FILTRE_LST1"), L"Outgoing call answered");
    EXPECT_EQ(elementOf(english, "TI_NAMECALL_UNKNOWN"), L"No identity");
}

TEST(ShippedDictionary, French_IsReadInFrench)
{
    EXPECT_EQ(elementOf(shipped(L"1036"), "ST_FILTRE_LST2"), L"Appel entrant r\u00E9pondu");
}

}
