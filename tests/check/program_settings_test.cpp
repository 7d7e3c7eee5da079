// The table of the settings and those who read them, in the direction that no compiler sees:
// each setting of the table is read by somebody.
#include "check/program_settings.h"
#include "common/connector_settings.h"
#include "common/settings_table.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <set>
#include <string_view>
#include <tuple>

namespace hublink::check {

namespace {

// Which one it is of the settings of one kind that are read in a way of their own.
bool is(const Setting& setting, std::string_view key)
{
    return setting.key == key;
}

// With these values every setting counts.
std::string usualValue(const Setting& setting)
{
    if (is(setting, "type1")) return ""; // else "type" would not count
    if (is(setting, "Order")) return "Base 1";
    if (is(setting, "RegisteDllExtension")) return "<PathDllExtension> <DllExtension>";
    switch (setting.kind) {
    case SettingKind::stopRequest: return "false";
    case SettingKind::toggle: return "true";
    case SettingKind::pause:
    case SettingKind::number: return "1";
    case SettingKind::groupwares: return "OUTLOOK,LOTUS";
    case SettingKind::base: return "file|server|view|phones|mails";
    case SettingKind::text: return "text";
    }
    return "";
}

std::string otherValue(const Setting& setting)
{
    if (is(setting, "Order")) return "Base 1,Base 1";
    switch (setting.kind) {
    case SettingKind::stopRequest: return "true";
    case SettingKind::toggle: return "false";
    case SettingKind::pause: return "2";
    case SettingKind::number: return is(setting, "TryCnxNumber") ? "0" : "2"; // zero or not is all that counts
    case SettingKind::groupwares: return "OUTLOOK";
    case SettingKind::base: return "other file|server|view|phones|mails";
    case SettingKind::text: return "other text";
    }
    return "";
}

// A file with the usual values, but for one setting.
std::string fileWithAnother(const Setting* changed)
{
    std::string text;
    std::string_view section;
    for (const Setting& each : settingsTable) {
        if (each.section != section) text += "[" + std::string(each.section) + (isOfBook(each) ? "1" : "") + "]\r\n";
        section = each.section;
        text += each.key + std::string("=") + (&each == changed ? otherValue(each) : usualValue(each)) + "\r\n";
    }
    return text;
}

class SettingsTable : public testing::Test {
protected:
    // All that is read of a file.
    auto readOf(const std::string& content) const
    {
        const std::wstring file = folder.write(L"test.ini", content);
        ProgramSettings settings(folder.path());
        settings.read(file);
        return std::tuple(settings.general(), isStopRequested(IniFile(file)), settings.outlook(), settings.lotus());
    }

    const support::ScratchFolder folder;
};

}

TEST_F(SettingsTable, EachSetting_ChangesWhatIsRead)
{
    const auto usual = readOf(fileWithAnother(nullptr));
    EXPECT_TRUE(usual == readOf(fileWithAnother(nullptr)));
    for (const Setting& each : settingsTable)
        EXPECT_FALSE(usual == readOf(fileWithAnother(&each))) << "nobody reads " << each.section << " " << each.key;
}

TEST_F(SettingsTable, Sections_StandTogether_AndNoKeyTwice)
{
    std::set<std::pair<std::string, std::string>> names;
    for (const Setting& each : settingsTable) {
        EXPECT_TRUE(names.insert({each.section, each.key}).second) << each.section << " " << each.key;
        const auto section = settingsIn(each.section);
        EXPECT_TRUE(&each >= section.data() && &each < section.data() + section.size())
            << each.section << " stands in two places";
    }
    EXPECT_TRUE(settingsIn("no such section").empty());
}

}
