// The project's own tests keep to the rules for names; and the check would
// notice it if they did not.
#include "test_names.h"

#include <gtest/gtest.h>

namespace {

using layering::nameViolations;
using Found = std::vector<std::string>;

}

TEST(TestNames, ProjectsTests_KeepTheRules)
{
    layering::Files files;
    layering::readFolder("tests", files);
    EXPECT_TRUE(files.contains("tests/layering/test_names_test.cpp")) << "the tests were not read";
    for (const std::string& violation : nameViolations(files)) ADD_FAILURE() << violation;
}

TEST(TestNames, SuiteInTwoFiles_IsNoticed)
{
    EXPECT_EQ(nameViolations({{"tests/a.cpp", "TEST(Log, A_B)\n"}, {"tests/b.cpp", "TEST_F(Log, C_D)\n"}}),
              Found{"suite Log stands in tests/a.cpp tests/b.cpp"});
}

TEST(TestNames, ClassInTwoFiles_IsNoticed_AlsoAsAStruct)
{
    EXPECT_EQ(nameViolations({{"tests/a.h", "class Process {\n"},
                              {"tests/b.h", "struct Process final : public Other {\n"},
                              {"tests/c.h", "class Process : public Other {};\n"}}),
              Found{"class Process stands in tests/a.h tests/b.h tests/c.h"});
}

TEST(TestNames, NestedAndMerelyDeclaredClasses_AreNotCounted)
{
    EXPECT_EQ(nameViolations({{"tests/a.h", "class Call {\n"}, {"tests/b.h", "class Call;\n    struct Call {\n"}}),
              Found{});
}

TEST(TestNames, TestThatTellsNoResult_IsNoticed)
{
    EXPECT_EQ(nameViolations({{"tests/a.cpp", "TEST(Log, LineIsWritten)\n"}}),
              Found{"Log.LineIsWritten tells a condition or a result only"});
}
