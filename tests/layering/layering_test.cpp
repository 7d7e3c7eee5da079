// The project's own sources keep the layers; and the check would notice it if
// they did not.
#include "include_rules.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using layering::Files;
using layering::violations;
using Found = std::vector<std::string>;

Files projectSources()
{
    Files files;
    layering::readFolder("src", files);
    layering::readFolder("desk", files);
    return files;
}

// What a single file with a single include line breaks.
Found planted(const std::string& file, const std::string& included)
{
    return violations({{file, "#pragma once\n#include \"" + included + "\"\n"}});
}

}

TEST(Layering, ProjectsSources_KeepTheLayers)
{
    const Files files = projectSources();
    for (const char* known :
         {"src/shell/hublink.h", "src/softphone/pavex_interface.h", "src/outlook/initialisation.cpp",
          "src/common/host.h", "src/automation/object.h", "src/automation/server/dispatch.h"})
        EXPECT_TRUE(files.contains(known)) << known << " was not read";
    EXPECT_GT(std::count_if(files.begin(), files.end(),
                            [](const auto& file) { return !layering::includesOf(file.second).empty(); }),
              50);
    for (const std::string& violation : violations(files)) ADD_FAILURE() << violation;
}

TEST(Layering, ArrowsDownwards_AreAllowed)
{
    for (const char* target :
         {"shell/log.h", "softphone/a.h", "outlook/a.h", "lotus/a.h", "common/a.h", "automation/a.h"})
        EXPECT_EQ(planted("src/shell/x.cpp", target), Found{}) << target;
    for (const char* target : {"softphone/a.h", "outlook/a.h", "lotus/a.h", "common/a.h", "automation/a.h"})
        EXPECT_EQ(planted("src/softphone/x.cpp", target), Found{}) << target;
    EXPECT_EQ(planted("src/outlook/x.cpp", "common/a.h"), Found{});
    EXPECT_EQ(planted("src/lotus/x.cpp", "automation/a.h"), Found{});
    EXPECT_EQ(planted("src/common/x.cpp", "automation/a.h"), Found{});
    EXPECT_EQ(planted("src/convid/x.cpp", "automation/server/a.h"), Found{});
    EXPECT_EQ(planted("desk/softphone/x.cpp", "automation/server/a.h"), Found{});
    EXPECT_EQ(planted("desk/softphone/x.cpp", "desk/common/a.h"), Found{});
}

TEST(Layering, ArrowsUpwards_AreNoticed)
{
    const std::pair<const char*, const char*> upwards[] = {
        {"src/softphone/x.cpp", "shell/hublink.h"},
        {"src/outlook/x.h", "softphone/a.h"},
        {"src/lotus/x.h", "softphone/a.h"},
        {"src/outlook/x.cpp", "shell/a.h"},
        {"src/common/x.cpp", "outlook/a.h"},
        {"src/common/x.h", "lotus/a.h"},
        {"src/common/x.h", "shell/a.h"},
        {"src/automation/x.cpp", "common/a.h"},
        {"src/automation/server/x.cpp", "shell/a.h"},
    };
    for (const auto& [file, included] : upwards)
        EXPECT_EQ(planted(file, included), Found{std::string(file) + " includes " + included});
}

TEST(Layering, ArrowsAcross_AreNoticed)
{
    const std::pair<const char*, const char*> across[] = {
        {"src/outlook/x.cpp", "lotus/a.h"},     {"src/lotus/x.cpp", "outlook/a.h"},
        {"src/convid/x.cpp", "common/a.h"},     {"src/shell/x.cpp", "convid/a.h"},
        {"desk/softphone/x.cpp", "common/a.h"}, {"desk/outlook/x.cpp", "outlook/a.h"},
        {"src/shell/x.cpp", "desk/common/a.h"}, {"src/automation/x.cpp", "desk/common/a.h"},
        {"src/check/x.cpp", "softphone/a.h"},   {"src/setup/x.cpp", "outlook/a.h"},
    };
    for (const auto& [file, included] : across)
        EXPECT_EQ(planted(file, included), Found{std::string(file) + " includes " + included});
}

TEST(Layering, IncludeThatIsNotWrittenFromTheRoot_IsNoticed)
{
    EXPECT_EQ(planted("src/shell/x.cpp", "log.h"), Found{"src/shell/x.cpp includes log.h, which names no room"});
    EXPECT_EQ(planted("src/shell/x.cpp", "../common/host.h"),
              Found{"src/shell/x.cpp includes ../common/host.h, which names no room"});
}

TEST(Layering, FileOutsideTheRooms_IsNoticed)
{
    EXPECT_EQ(planted("src/attic/x.cpp", "common/a.h"), Found{"src/attic/x.cpp: no such room"});
}

TEST(Layering, HeadersThatIncludeEachOther_AreNoticed)
{
    EXPECT_EQ(
        violations({{"src/common/a.h", "#include \"common/b.h\"\n"}, {"src/common/b.h", "#include \"common/a.h\"\n"}}),
        Found{"circle: common/a.h > common/b.h > common/a.h"});
}

TEST(Layering, HeadersThatIncludeEachOtherOnADetour_AreNoticed)
{
    const Files files{{"src/outlook/a.h", "#include \"outlook/b.h\"\n"},
                      {"src/outlook/b.h", "#include \"common/x.h\"\n#include \"outlook/c.h\"\n"},
                      {"src/outlook/c.h", "#include \"outlook/a.h\"\n"},
                      {"src/outlook/d.h", "#include \"outlook/a.h\"\n"}};
    EXPECT_EQ(violations(files), Found{"circle: outlook/a.h > outlook/b.h > outlook/c.h > outlook/a.h"});
}

TEST(Layering, TwoWaysToTheSameHeader_AreNoCircle)
{
    const Files files{{"src/outlook/a.h", "#include \"outlook/b.h\"\n#include \"outlook/c.h\"\n"},
                      {"src/outlook/b.h", "#include \"outlook/d.h\"\n"},
                      {"src/outlook/c.h", "#include \"outlook/d.h\"\n"},
                      {"src/outlook/a.cpp", "#include \"outlook/a.h\"\n"}};
    EXPECT_EQ(violations(files), Found{});
}

TEST(Layering, IncludeLines_AreReadInEverySpelling)
{
    EXPECT_EQ(
        layering::includesOf("#include \"a.h\"\r\n  #  include\t\"b.h\" // why\n#include <c.h>\n// #include \"d.h\"\n"
                             "#include \"e.h\""),
        (Found{"a.h", "b.h", "e.h"}));
}
