#include "common/error_trap.h"

#include "automation/error.h"
#include "support/trapped_errors.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

namespace hublink {

namespace {

using Names = std::vector<std::wstring>;

// A pointer, so that no compiler knows that what follows it does not run.
void (*const fail)() = [] { throw automation::AutomationError(L"Find", E_FAIL, L"Outlook", L"It is broken."); };

void FindOutlookContact()
{
    trapErrors(fail);
}

struct Connector {
    static bool ReadConnectorIni(const std::string& section)
    {
        trapErrors([&] { throw std::runtime_error(section); });
        return false;
    }
};

void trapInLambda()
{
    const auto look = [] { trapErrors(fail); };
    look();
}

void handle()
{
    trapErrors(fail, fail);
}

void endOnAnything()
{
    trapErrors([] { throw std::runtime_error("first"); });
    trapErrors([] { std::wstring().at(1); });
    trapErrors([] { throw std::bad_alloc(); });
    trapErrors([] { throw 4; });
}

}

TEST(ErrorTrap, ProcedureWithoutError_RunsToItsEnd_AndTellsNobody)
{
    const support::TrappedErrors trapped;
    int done = 0;
    trapErrors([&] { ++done; }, [&] { done += 10; });
    EXPECT_EQ(done, 1);
    EXPECT_TRUE(trapped.procedures.empty());
}

TEST(ErrorTrap, ResultSetBeforeTheError_IsWhatRemains)
{
    const support::TrappedErrors trapped;
    std::wstring result;
    trapErrors([&] {
        result = L"before";
        fail();
        result = L"after";
    });
    EXPECT_EQ(result, L"before");
}

TEST(ErrorTrap, Hook_IsToldProcedureAndError)
{
    const support::TrappedErrors trapped;
    FindOutlookContact();
    ASSERT_EQ(trapped.procedures, Names{L"FindOutlookContact"});
    for (const char* part : {"Find", "0x80004005", "Outlook", "It is broken."})
        EXPECT_NE(trapped.errors[0].find(part), std::string::npos) << part;
}

TEST(ErrorTrap, TrapInAClassOrInALambda_NamesTheProcedureAroundIt)
{
    const support::TrappedErrors trapped;
    Connector::ReadConnectorIni("Application");
    trapInLambda();
    EXPECT_EQ(trapped.procedures, (Names{L"ReadConnectorIni", L"trapInLambda"}));
}

TEST(ErrorTrap, EveryKindOfException_IsTrapped)
{
    const support::TrappedErrors trapped;
    endOnAnything();
    EXPECT_EQ(trapped.procedures, Names(4, L"endOnAnything"));
    EXPECT_EQ(trapped.errors.at(0), "first");
}

TEST(ErrorTrap, Handler_RunsAfterAnErrorOnly)
{
    const support::TrappedErrors trapped;
    std::string order;
    trapErrors(
        [&] {
            order += "body ";
            fail();
        },
        [&] { order += "handler"; });
    EXPECT_EQ(order, "body handler");
    EXPECT_EQ(trapped.procedures.size(), 1u);
}

TEST(ErrorTrap, ErrorInTheHandler_EndsTheHandlerOnly_AndIsTold)
{
    const support::TrappedErrors trapped;
    int reached = 0;
    trapErrors(fail, [&] {
        ++reached;
        fail();
        ++reached;
    });
    EXPECT_EQ(reached, 1);
    handle();
    ASSERT_EQ(trapped.procedures.size(), 4u);
    EXPECT_EQ(trapped.procedures.at(2), L"handle");
    EXPECT_EQ(trapped.procedures.at(3), L"handle");
}

TEST(ErrorTrap, InnerTrap_KeepsTheErrorFromTheOuterProcedure)
{
    const support::TrappedErrors trapped;
    bool wentOn = false;
    trapErrors([&] {
        FindOutlookContact();
        wentOn = true;
    });
    EXPECT_TRUE(wentOn);
    EXPECT_EQ(trapped.procedures, Names{L"FindOutlookContact"});
}

TEST(ErrorTrap, NewHook_ReplacesAndHandsBackTheOldOne)
{
    int first = 0;
    int second = 0;
    const DiagnosticHook original = setDiagnosticHook([&](const std::source_location&, const char*) { ++first; });
    const DiagnosticHook previous = setDiagnosticHook([&](const std::source_location&, const char*) { ++second; });
    trapErrors(fail);
    previous(std::source_location::current(), "told by hand");
    setDiagnosticHook(original);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 1);
}

TEST(ErrorTrap, HookThatThrows_ChangesNothing)
{
    int told = 0;
    const DiagnosticHook original = setDiagnosticHook([&](const std::source_location&, const char*) {
        ++told;
        throw std::bad_alloc();
    });
    bool handled = false;
    trapErrors(fail, [&] {
        handled = true;
        fail();
    });
    setDiagnosticHook(original);
    EXPECT_TRUE(handled);
    EXPECT_EQ(told, 2);
}

}
