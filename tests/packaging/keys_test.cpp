// Whoever adds a setting to the table adds it to the default ini file and to its documentation.
#include "keys.h"
#include "setup/first_settings.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace {

std::string project(const wchar_t* file)
{
    const std::string text = support::readFile(support::projectFile(file));
    EXPECT_FALSE(text.empty()) << "a file of the project was not read";
    return text;
}

packaging::Sections ini()
{
    return packaging::keysOfIni(project(L"packaging/pavexconnector.ini"));
}

packaging::Sections page()
{
    return packaging::keysOfPage(project(L"docs/settings.md"));
}

packaging::Sections table()
{
    packaging::Sections sections;
    for (const hublink::Setting& each : hublink::settingsTable)
        sections[each.section + std::string(isOfBook(each) ? "1" : "")].insert(each.key);
    return sections;
}

// How an explanation may say what counts when a key is missing.
std::vector<std::string> fallbackInWords(const std::string& section, const std::string& key)
{
    const bool isOfOneBook = section.starts_with(hublink::bookSection);
    for (const hublink::Setting& each : hublink::settingsIn(isOfOneBook ? hublink::bookSection : section))
        if (each.key == key) {
            const std::string fallback = each.fallback;
            if (each.kind == hublink::SettingKind::toggle && fallback != "true") return {"off)", "false)"};
            if (fallback.empty()) return {"empty", "none"};
            return {fallback + ")", fallback + ":"};
        }
    return {};
}

// The sections whose keys are properties, as docs/installing.md names them.
std::set<std::string> documentedSections()
{
    const std::string text = project(L"docs/installing.md");
    const std::size_t begin = text.find("Every key of the sections");
    const std::string names = text.substr(begin, text.find(" but `kill`", begin) - begin);
    std::set<std::string> found;
    for (std::size_t at = names.find("`["); at != std::string::npos; at = names.find("`[", at + 1))
        found.insert(names.substr(at + 2, names.find(']', at) - at - 2));
    return found;
}

}

TEST(SettingsKeys, DefaultIniFile_AndDocumentation_NameTheSame)
{
    EXPECT_EQ(ini(), page());
}

TEST(SettingsKeys, DefaultIniFile_AndTable_NameTheSame)
{
    EXPECT_EQ(ini(), table());
    EXPECT_GT(std::size(hublink::settingsTable), 50u);
}

TEST(SettingsKeys, AnyKeyAddedToOneAlone_IsNoticed)
{
    const std::string key = "\nAddedKey=1\n";
    EXPECT_NE(packaging::keysOfIni(project(L"packaging/pavexconnector.ini") + key), page());
    EXPECT_NE(packaging::keysOfPage("## [outlook]\n| `AddedKey` | |\n"), packaging::Sections());
}

TEST(SettingsKeys, Each_HasALineOfExplanationAboveIt_ThatEndsWithWhatCountsWhenItIsMissing)
{
    std::istringstream lines(project(L"packaging/pavexconnector.ini"));
    std::string section, before;
    for (std::string line; std::getline(lines, line); before = line) {
        if (line.starts_with('[')) section = line.substr(1, line.find(']') - 1);
        if (line.starts_with(';') || line.find('=') == std::string::npos) continue;
        const std::string end = before.substr(std::min(before.rfind('('), before.size()));
        const auto tells = [&](const std::string& what) { return end.starts_with("(" + what); };
        EXPECT_TRUE(before.starts_with("; ")) << line;
        EXPECT_TRUE(std::ranges::any_of(fallbackInWords(section, line.substr(0, line.find('='))), tells)) << before;
    }
}

TEST(SettingsKeys, DefaultIniFile_BeginsWithAComment_AndItsLinesEndAsNotepadWantsThem)
{
    const std::string text = project(L"packaging/pavexconnector.ini");
    EXPECT_TRUE(text.starts_with(';'));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), std::count(text.begin(), text.end(), '\r'));
}

TEST(SettingProperties, AreTheKeysOfTheDocumentedSections_InCapitals)
{
    const packaging::Sections sections = ini();
    std::set<std::pair<std::string, std::string>> expected;
    for (const std::string& section : documentedSections())
        for (const std::string& key : sections.at(section))
            if (key != "kill") expected.insert({section, key});
    EXPECT_GT(expected.size(), 20u);
    std::set<std::pair<std::string, std::string>> found;
    for (const auto& each : hublink::setup::settingProperties()) {
        found.insert({each.section, each.key});
        std::wstring name(each.key, each.key + strlen(each.key));
        CharUpperW(name.data());
        EXPECT_EQ(each.property, name);
    }
    EXPECT_EQ(found, expected);
}
