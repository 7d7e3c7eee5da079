#include "common/error_trap.h"

#include "automation/error.h"
#include "support/trapped_errors.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

void fail()
{
    throw automation::AutomationError(L"Find", E_FAIL, L"Outlook", L"It is broken.");
}

}

TEST(ErrorTrap, ProcedureWithoutError_RunsToItsEnd_AndTellsNobody)
{
    const support::TrappedErrors trapped;
    int done = 0;
    trapErrors(L"Procedure", [&] { ++done; }, [&] { done += 10; });
    EXPECT_EQ(done, 1);
    EXPECT_TRUE(trapped.procedures.empty());
}

TEST(ErrorTrap, ResultSetBeforeTheError_IsWhatRemains)
{
    const support::TrappedErrors trapped;
    std::wstring result;
    trapErrors(L"Procedure", [&] {
        result = L"before";
        fail();
        result = L"after";
    });
    EXPECT_EQ(result, L"before");
}

TEST(ErrorTrap, Hook_IsToldProcedureAndError)
{
    const support::TrappedErrors trapped;
    trapErrors(L"FindOutlookContact", fail);
    ASSERT_EQ(trapped.procedures, (std::vector<std::wstring>{L"FindOutlookContact"}));
    for (const char* part : {"Find", "0x80004005", "Outlook", "It is broken."})
        EXPECT_NE(trapped.errors[0].find(part), std::string::npos) << part;
}

TEST(ErrorTrap, EveryKindOfException_IsTrapped)
{
    const support::TrappedErrors trapped;
    trapErrors(L"First", [] { throw std::runtime_error("first"); });
    trapErrors(L"Second", [] { std::wstring().at(1); });
    trapErrors(L"Third", [] { throw std::bad_alloc(); });
    EXPECT_EQ(trapped.procedures, (std::vector<std::wstring>{L"First", L"Second", L"Third"}));
    EXPECT_EQ(trapped.errors[0], "first");
}

TEST(ErrorTrap, Handler_RunsAfterAnErrorOnly)
{
    const support::TrappedErrors trapped;
    std::string order;
    trapErrors(L"Procedure", [&] { order += "body "; fail(); }, [&] { order += "handler"; });
    EXPECT_EQ(order, "body handler");
    EXPECT_EQ(trapped.procedures.size(), 1u);
}

TEST(ErrorTrap, ErrorInTheHandler_EndsTheHandlerOnly_AndIsTold)
{
    const support::TrappedErrors trapped;
    int reached = 0;
    trapErrors(L"Procedure", fail, [&] {
        ++reached;
        fail();
        ++reached;
    });
    EXPECT_EQ(reached, 1);
    EXPECT_EQ(trapped.procedures, (std::vector<std::wstring>{L"Procedure", L"Procedure"}));
}

TEST(ErrorTrap, InnerTrap_KeepsTheErrorFromTheOuterProcedure)
{
    const support::TrappedErrors trapped;
    bool wentOn = false;
    trapErrors(L"Outer", [&] {
        trapErrors(L"Inner", fail);
        wentOn = true;
    });
    EXPECT_TRUE(wentOn);
    EXPECT_EQ(trapped.procedures, (std::vector<std::wstring>{L"Inner"}));
}

TEST(ErrorTrap, NewHook_ReplacesAndHandsBackTheOldOne)
{
    int first = 0;
    int second = 0;
    const DiagnosticHook original = setDiagnosticHook([&](const wchar_t*, const char*) { ++first; });
    const DiagnosticHook previous = setDiagnosticHook([&](const wchar_t*, const char*) { ++second; });
    trapErrors(L"Procedure", fail);
    previous(L"Procedure", "told by hand");
    setDiagnosticHook(original);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 1);
}
