// What is thrown at the border to COM and to Windows becomes an answer.
#include "automation/border.h"

#include "automation/error.h"
#include "automation/failure.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

using automation::atBorder;

namespace {

template <class Exception>
HRESULT codeOf(const Exception& exception)
{
    return atBorder([&]() -> HRESULT { throw exception; });
}

}

TEST(Border, WorkThatSucceeds_GivesItsOwnAnswer)
{
    EXPECT_EQ(atBorder([] { return S_FALSE; }), S_FALSE);
    EXPECT_EQ(atBorder(-1, [] { return 7; }), 7);
}

TEST(Border, ExceptionOfEachKind_BecomesItsCode)
{
    EXPECT_EQ(codeOf(automation::AutomationError(L"Find", E_ABORT)), E_ABORT);
    EXPECT_EQ(codeOf(automation::Failure{DISP_E_BADINDEX}), DISP_E_BADINDEX);
    EXPECT_EQ(codeOf(automation::Exception{E_PENDING, L"Partner", L"It waits."}), E_PENDING);
    EXPECT_EQ(codeOf(std::bad_alloc()), E_OUTOFMEMORY);
    EXPECT_EQ(codeOf(std::runtime_error("broken")), E_FAIL);
    EXPECT_EQ(codeOf(4), E_FAIL);
}

TEST(Border, ExceptionWhereNoCodeIsAnswered_BecomesTheDefault)
{
    EXPECT_EQ(atBorder(-1, []() -> int { throw std::bad_alloc(); }), -1);
    EXPECT_EQ(atBorder(-1, []() -> int { throw automation::Failure{E_PENDING}; }), -1);
}

TEST(Border, TextOfAnException_IsItsOwn_OrSaysThatItHasNone)
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
