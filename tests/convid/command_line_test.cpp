#include "convid/class_identity.h"
#include "convid/command_line.h"

#include <gtest/gtest.h>

using convid::Task;
using convid::taskOf;

TEST(CommandLine, KnownWord_WithSlashOrDash_InAnyCase_IsUnderstood)
{
    EXPECT_EQ(taskOf({L"/RegServer"}), Task::registerServer);
    EXPECT_EQ(taskOf({L"-regserver"}), Task::registerServer);
    EXPECT_EQ(taskOf({L"/UNREGSERVER"}), Task::unregisterServer);
    EXPECT_EQ(taskOf({L"-Embedding"}), Task::serve);
    EXPECT_EQ(taskOf({L"/Embedding"}), Task::serve);
}

TEST(CommandLine, NothingOrSomethingElseOrTooMuch_IsWrong)
{
    EXPECT_EQ(taskOf({}), Task::wrong);
    EXPECT_EQ(taskOf({L""}), Task::wrong);
    EXPECT_EQ(taskOf({L"RegServer"}), Task::wrong);
    EXPECT_EQ(taskOf({L"/Help"}), Task::wrong);
    EXPECT_EQ(taskOf({L"/"}), Task::wrong);
    EXPECT_EQ(taskOf({L"/RegServer", L"-Embedding"}), Task::wrong);
}

TEST(ClassIdentity, ProgId_IsTheOneThatClientsAskFor)
{
    EXPECT_STREQ(convid::classRegistration.progId, L"PavexConvId.OrvelConvertId");
}
