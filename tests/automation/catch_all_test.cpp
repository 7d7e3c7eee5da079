// Whatever is thrown at an entry from COM or Windows becomes a result.
#include "automation/catch_all.h"

#include "automation/error.h"
#include "automation/failure.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

using automation::catchAll;

namespace {

template <class Exception>
HRESULT codeOf(const Exception& exception)
{
    return catchAll([&]() -> HRESULT { throw exception; });
}

}

TEST(CatchAll, WorkThatSucceeds_GivesItsOwnAnswer)
{
    EXPECT_EQ(catchAll([] { return S_FALSE; }), S_FALSE);
    EXPECT_EQ(catchAll(-1, [] { return 7; }), 7);
}

TEST(CatchAll, ExceptionOfEachKind_BecomesItsCode)
{
    EXPECT_EQ(codeOf(automation::AutomationError(L"Find", E_ABORT)), E_ABORT);
    EXPECT_EQ(codeOf(automation::Failure{DISP_E_BADINDEX}), DISP_E_BADINDEX);
    EXPECT_EQ(codeOf(automation::Exception{E_PENDING, L"Partner", L"It waits."}), E_PENDING);
    EXPECT_EQ(codeOf(std::bad_alloc()), E_OUTOFMEMORY);
    EXPECT_EQ(codeOf(std::runtime_error("broken")), E_FAIL);
    EXPECT_EQ(codeOf(4), E_FAIL);
}

TEST(CatchAll, ExceptionWhereNoCodeIsAnswered_BecomesTheDefault)
{
    EXPECT_EQ(catchAll(-1, []() -> int { throw std::bad_alloc(); }), -1);
    EXPECT_EQ(catchAll(-1, []() -> int { throw automation::Failure{E_PENDING}; }), -1);
}

TEST(CatchAll, TextOfAnException_IsItsOwn_OrSaysThatItHasNone)
{
    const auto textOf = [](const auto& exception) -> std::string {
        try {
            throw exception;
        } catch (...) {
            return automation::textOfException();
        }
    };
    EXPECT_EQ(textOf(std::runtime_error("broken")), "broken");
    EXPECT_EQ(textOf(4), "an exception of another kind");
}
