// Whoever adds a key to the sources adds it to the default ini file and to its documentation.
#include "keys.h"
#include "setup/first_settings.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace {

using packaging::Keys;

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

Keys sources()
{
    Keys keys;
    for (const wchar_t* file :
         {L"src/common/connector_settings.cpp", L"src/outlook/settings_reading.cpp", L"src/lotus/settings_reading.cpp"})
        keys.merge(packaging::keysOfSource(project(file)));
    return keys;
}

// The name of each property in the table of docs/installing.md, and the key beside it.
std::map<std::string, std::string> documentedProperties()
{
    std::map<std::string, std::string> found;
    std::istringstream lines(project(L"docs/installing.md"));
    for (std::string line; std::getline(lines, line);) {
        std::vector<std::string> words;
        for (std::size_t at = line.find('`'); at != std::string::npos && words.size() < 2;
             at = line.find('`', at + 1)) {
            const std::size_t end = line.find('`', at + 1);
            if (end == std::string::npos) break;
            words.push_back(line.substr(at + 1, end - at - 1));
            at = end;
        }
        if (line.starts_with("| `") && words.size() == 2 && line.find("[") != std::string::npos)
            found[words[0]] = words[1];
    }
    return found;
}

}

TEST(SettingsKeys, DefaultIniFile_AndDocumentation_NameTheSame)
{
    EXPECT_EQ(ini(), page());
}

TEST(SettingsKeys, DefaultIniFile_AndSources_NameTheSame)
{
    EXPECT_EQ(packaging::together(ini()), sources());
    EXPECT_GT(sources().size(), 50u);
}

TEST(SettingsKeys, AnyKeyAddedToOneAlone_IsNoticed)
{
    const std::string key = "\nAddedKey=1\n";
    EXPECT_NE(packaging::keysOfIni(project(L"packaging/pavexconnector.ini") + key), page());
    EXPECT_NE(packaging::keysOfPage("## [outlook]\n| `AddedKey` | |\n"), packaging::Sections());
    for (const char* added :
         {"ini.read(section, \"AddedKey\", \"\")", "read(\"AddedKey\")", "read(\"AddedKey\", \"fallback\")",
          "ini.readSwitch(section.c_str(), \"AddedKey\", \"\")", "number(ini, \"AddedKey\", \"20\")",
          "constexpr const char* key = \"AddedKey\"; ini.read(section, key, \"no\")"})
        EXPECT_EQ(packaging::keysOfSource(added), Keys{"AddedKey"}) << added;
}

TEST(SettingsKeys, Each_HasALineOfExplanationAboveIt)
{
    std::istringstream lines(project(L"packaging/pavexconnector.ini"));
    std::string before;
    for (std::string line; std::getline(lines, line); before = line)
        if (!line.starts_with(';') && line.find('=') != std::string::npos) {
            EXPECT_TRUE(before.starts_with("; ") && before.find('(') != std::string::npos) << line;
        }
}

TEST(SettingsKeys, DefaultIniFile_BeginsWithAComment_AndItsLinesEndAsNotepadWantsThem)
{
    const std::string text = project(L"packaging/pavexconnector.ini");
    EXPECT_TRUE(text.starts_with(';'));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), std::count(text.begin(), text.end(), '\r'));
}

TEST(SettingProperties, AreTheKeysOfTheGeneralSections_InCapitals)
{
    const packaging::Sections sections = ini();
    std::set<std::pair<std::string, std::string>> expected;
    for (const char* section : {"Application", "AllApplication", "outlook", "lotus"})
        for (const std::string& key : sections.at(section))
            if (key != "kill") expected.insert({section, key});
    std::set<std::pair<std::string, std::string>> found;
    for (const auto& each : hublink::setup::settingProperties()) {
        found.insert({each.section, each.key});
        std::wstring name(each.key, each.key + strlen(each.key));
        CharUpperW(name.data());
        EXPECT_EQ(each.name, name);
    }
    EXPECT_EQ(found, expected);
}

TEST(SettingProperties, All_AreDocumented)
{
    std::map<std::string, std::string> known;
    for (const auto& each : hublink::setup::settingProperties())
        known[std::string(each.name, each.name + wcslen(each.name))] =
            "[" + std::string(each.section) + "] " + each.key;
    EXPECT_EQ(documentedProperties(), known);
}
