// An ini file's lines, names and encodings.
#include "check/ini_document.h"

#include "support/scratch_folder.h"

#include <gtest/gtest.h>

namespace hublink::check {

namespace {

std::vector<std::wstring> keysOf(const IniSection& section)
{
    std::vector<std::wstring> names;
    for (const IniLine& key : section.keys) names.push_back(key.name);
    return names;
}

using Lines = std::vector<std::size_t>;

}

TEST(IniDocument, SectionsAndKeys_KeepTheirNamesAndLines)
{
    const IniDocument document = parseIni("; comment\r\n[Application]\r\nkill=false\r\n\r\n  type = OUTLOOK \r\n"
                                          "[outlook]\nlanguage=0");
    ASSERT_EQ(document.sections.size(), 2u);
    EXPECT_EQ(document.sections[0].name, L"Application");
    EXPECT_EQ(document.sections[0].line, 2u);
    EXPECT_EQ(keysOf(document.sections[0]), (std::vector<std::wstring>{L"kill", L"type"}));
    EXPECT_EQ(document.sections[0].keys[1].line, 5u);
    EXPECT_EQ(document.sections[0].keys[1].valueSize, 7u);
    EXPECT_EQ(document.sections[1].keys[0].line, 7u);
    EXPECT_TRUE(document.strayLines.empty());
}

TEST(IniDocument, LinesThatSayNothing_AreStray)
{
    EXPECT_EQ(parseIni("before=1\n[a]\nword\n=3\n[unfinished\nx=1\n").strayLines, (Lines{1, 3, 4, 5}));
}

TEST(IniDocument, Encodings_AreTold)
{
    EXPECT_EQ(parseIni("[a]\nb=c").encoding, Encoding::ansi);
    EXPECT_EQ(parseIni("").encoding, Encoding::ansi);
    EXPECT_EQ(parseIni("[a]\nb=\xE9t\xE9").encoding, Encoding::ansi);
    EXPECT_EQ(parseIni("[a]\nb=\xC3\xA9t\xC3\xA9").encoding, Encoding::utf8);
    EXPECT_EQ(parseIni("\xEF\xBB\xBF[a]\nb=c").encoding, Encoding::utf8WithMark);
    EXPECT_EQ(parseIni(support::utf16File(L"[a]\nb=c")).encoding, Encoding::utf16);
    EXPECT_EQ(parseIni(std::string("\xFE\xFF\0[\0a\0]", 8)).encoding, Encoding::utf16Reversed);
    EXPECT_EQ(parseIni(std::string("MZ\x90\0\3\0\0\0", 8)).encoding, Encoding::noText);
}

TEST(IniDocument, FewControls_AreTold_AndManyMakeNoText)
{
    const IniDocument document = parseIni("[Application]\r\n; page one \f\r\ntype=OUTLOOK\r\n");
    EXPECT_EQ(document.encoding, Encoding::ansi);
    EXPECT_EQ(document.controlLines, Lines{2});
    ASSERT_EQ(document.sections.size(), 1u);
    EXPECT_EQ(document.sections[0].keys.size(), 1u);
    EXPECT_EQ(parseIni("[a]\r\nb=c\x1A").controlLines, Lines{});
    EXPECT_EQ(parseIni(std::string("[Application]\r\n; page one \0\r\ntype=OUTLOOK\r\n", 40)).encoding,
              Encoding::noText);
    EXPECT_EQ(parseIni("\x02\x03\x04 some words").encoding, Encoding::noText);
}

TEST(IniDocument, Utf16_IsReadByCharacters_AndTellsWhatTheCodePageLacks)
{
    const IniDocument document = parseIni(support::utf16File(L"[Äpfel]\r\nname=Müller\r\n"));
    ASSERT_EQ(document.sections.size(), 1u);
    EXPECT_EQ(document.sections[0].name, L"Äpfel");
    EXPECT_FALSE(document.losesCharacters);
    EXPECT_TRUE(parseIni(support::utf16File(L"[a]\r\nb=\x4E2D")).losesCharacters);
}

TEST(IniDocument, Utf8Names_AreDecoded)
{
    EXPECT_EQ(parseIni("[\xC3\x84pfel]").sections[0].name, L"Äpfel");
}

TEST(IniDocument, OddNumberOfUtf16Bytes_DoesNoHarm)
{
    EXPECT_EQ(parseIni(support::utf16File(L"[a]\r\nb=c") + "x").sections.size(), 1u);
    EXPECT_TRUE(parseIni("\xFF\xFE").sections.empty());
    EXPECT_TRUE(parseIni("\xFF").sections.empty());
}

TEST(IniDocument, EveryByte_DoesNoHarm)
{
    std::string noise;
    for (unsigned index = 0; index < 300'000; ++index)
        noise += static_cast<char>(index * 2654435761u >> 11 | (index % 7 == 0 ? 0x20 : 0));
    EXPECT_EQ(parseIni(noise).encoding, Encoding::noText);
    EXPECT_NO_THROW(parseIni("\xFF\xFE" + noise));
}

}
