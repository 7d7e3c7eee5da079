// What a failed call tells, and what it leaves behind: nothing.
#include "automation/object.h"
#include "partner.h"
#include "support/allocation_count.h"
#include "support/failure.h"
#include "support/raw_partner.h"

#include <gtest/gtest.h>

#include <functional>

using automation::AutomationError;
using automation::Object;
using automation::Value;
using partners::Partner;
using support::RawPartner;
namespace server = automation::server;

namespace {

// The count begins before the first text: not every system's COM bears to see
// a block freed that was made before it counted.
const long countingBegins = support::outstandingAllocations();

int fillIns = 0;

HRESULT WINAPI fillIn(EXCEPINFO* info)
{
    ++fillIns;
    info->bstrSource = SysAllocString(L"Late source");
    info->bstrDescription = SysAllocString(L"Late description");
    info->bstrHelpFile = SysAllocString(L"late.hlp");
    return S_OK;
}

HRESULT raiseAll(const RawPartner::Call& call)
{
    call.exception->scode = E_ACCESSDENIED;
    call.exception->bstrSource = SysAllocString(L"Partner");
    call.exception->bstrDescription = SysAllocString(L"No entry.");
    call.exception->bstrHelpFile = SysAllocString(L"partner.hlp");
    return DISP_E_EXCEPTION;
}

}

TEST(ObjectError, ServerException_CarriesEverythingItSaid)
{
    const auto partner = server::make<Partner>();
    const AutomationError error = failureOf([&] { Object(partner.get()).call(L"Fail"); });
    EXPECT_EQ(error.member(), L"Fail");
    EXPECT_EQ(error.code(), E_FAIL);
    EXPECT_EQ(error.source(), L"Partner");
    EXPECT_EQ(error.description(), L"it is broken");
    EXPECT_EQ(error.argument(), AutomationError::noArgument);
}

TEST(ObjectError, DeferredException_IsFilledInOnce)
{
    fillIns = 0;
    RawPartner partner({{L"Fail", 1}});
    partner.onCall = [](const RawPartner::Call& call) {
        call.exception->scode = E_ACCESSDENIED;
        call.exception->pfnDeferredFillIn = fillIn;
        return DISP_E_EXCEPTION;
    };
    const AutomationError error = failureOf([&] { Object(&partner).call(L"Fail"); });
    EXPECT_EQ(fillIns, 1);
    EXPECT_EQ(error.code(), E_ACCESSDENIED);
    EXPECT_EQ(error.source(), L"Late source");
    EXPECT_EQ(error.description(), L"Late description");
}

TEST(ObjectError, ExceptionRecord_IsEmptyWhenTheServerGetsIt)
{
    RawPartner partner({{L"Look", 1}});
    partner.onCall = [](const RawPartner::Call& call) {
        const EXCEPINFO empty{};
        EXPECT_EQ(memcmp(call.exception, &empty, sizeof empty), 0);
        return S_OK;
    };
    Object(&partner).call(L"Look");
    EXPECT_EQ(partner.invocations.size(), 1u);
}

TEST(ObjectError, ExceptionWithoutTexts_HasEmptyOnes)
{
    RawPartner partner({{L"Fail", 1}});
    partner.onCall = [](const RawPartner::Call& call) {
        call.exception->scode = E_ABORT;
        return DISP_E_EXCEPTION;
    };
    const AutomationError error = failureOf([&] { Object(&partner).call(L"Fail"); });
    EXPECT_EQ(error.code(), E_ABORT);
    EXPECT_EQ(error.source(), L"");
    EXPECT_EQ(error.description(), L"");
}

TEST(ObjectError, ExceptionWithOldErrorNumber_BecomesItsAutomationCode)
{
    RawPartner partner({{L"Fail", 1}});
    partner.onCall = [](const RawPartner::Call& call) {
        call.exception->wCode = 91;
        return DISP_E_EXCEPTION;
    };
    EXPECT_EQ(failureOf([&] { Object(&partner).call(L"Fail"); }).code(), automation::objectNotSet);
}

TEST(ObjectError, PlainFailureCode_IsHandedOn)
{
    RawPartner partner({{L"Fail", 1}});
    partner.onCall = [](const RawPartner::Call&) { return HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE); };
    const AutomationError error = failureOf([&] { Object(&partner).put(L"Fail", true); });
    EXPECT_EQ(error.code(), HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE));
    EXPECT_EQ(error.member(), L"Fail");
}

TEST(ObjectError, RefusedArgument_IsCountedFromTheLeft)
{
    RawPartner partner({{L"Take", 1}});
    for (const HRESULT code : {DISP_E_TYPEMISMATCH, DISP_E_PARAMNOTFOUND}) {
        partner.onCall = [code](const RawPartner::Call& call) {
            *call.refused = 2; // the third from the right
            return code;
        };
        const AutomationError error = failureOf([&] { Object(&partner).call(L"Take", {L"a", L"b", L"c", L"d"}); });
        EXPECT_EQ(error.code(), code);
        EXPECT_EQ(error.argument(), 1u);
    }
}

TEST(ObjectError, RefusedArgument_OfAServerOfOurOwn_IsCountedFromTheLeft)
{
    const auto partner = server::make<Partner>();
    const AutomationError error = failureOf([&] { Object(partner.get()).call(L"Number", {std::int32_t{1}, L"abc"}); });
    EXPECT_EQ(error.code(), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(error.argument(), 1u);
}

TEST(ObjectError, FailureThatConcernsNoArgument_NamesNone)
{
    RawPartner partner({{L"Take", 1}});
    partner.onCall = [](const RawPartner::Call& call) {
        *call.refused = 0;
        return E_FAIL;
    };
    EXPECT_EQ(failureOf([&] { Object(&partner).call(L"Take", {L"a"}); }).argument(), AutomationError::noArgument);
}

TEST(ObjectError, EmptyReference_FailsWithObjectNotSet)
{
    const Object empty;
    for (const auto& use :
         {std::function<void()>([&] { empty.get(L"Name"); }), std::function<void()>([&] { empty.call(L"Name"); }),
          std::function<void()>([&] { empty.put(L"Name", L"x"); }), std::function<void()>([&] { empty.get(9); })})
        EXPECT_EQ(failureOf(use).code(), automation::objectNotSet);
    EXPECT_EQ(failureOf([&] { empty.get(L"Name"); }).member(), L"Name");
}

TEST(ObjectError, Message_NamesMemberCodeSourceAndDescription)
{
    const AutomationError error(L"Find", E_FAIL, L"Outlook", L"It is broken.", 2);
    const std::string message = error.what();
    for (const char* part : {"Find", "0x80004005", "Outlook", "It is broken.", "2"})
        EXPECT_NE(message.find(part), std::string::npos) << part;
}

TEST(ObjectError, ExceptionTexts_AreAllFreed)
{
    RawPartner partner({{L"Fail", 1}});
    const Object object(&partner);
    const auto failOnce = [&](HRESULT (*how)(const RawPartner::Call&)) {
        partner.onCall = how;
        failureOf([&] { object.call(L"Fail"); });
    };
    const auto later = [](const RawPartner::Call& call) {
        call.exception->pfnDeferredFillIn = fillIn;
        return DISP_E_EXCEPTION;
    };
    const auto round = [&] {
        failOnce(raiseAll);
        failOnce(later);
    };
    for (int warmUp = 0; warmUp < 50; ++warmUp) round();
    const long before = support::outstandingAllocations();
    for (int time = 0; time < 1000; ++time) round();
    EXPECT_EQ(support::outstandingAllocations(), before);
}

TEST(ObjectError, ThousandGoodAndBadCalls_LeaveNoTextBehind)
{
    const auto partner = server::make<Partner>();
    const Object object(partner.get());
    const auto round = [&] {
        object.put(L"Name", L"a name that is long enough for a block of its own");
        EXPECT_FALSE(object.get(L"Name").text().empty());
        Value text{std::wstring(1024, L'\0')};
        object.call(L"Echo", {byRef(text), L"second", std::int16_t{3}});
        EXPECT_EQ(object.get(L"Echo", {L"text"}).text(), L"text");
        failureOf([&] { object.call(L"Fail"); });
        failureOf([&] { object.call(L"Number", {L"abc", L"abc"}); });
        failureOf([&] { object.call(L"Nothing", {L"abc"}); });
        failureOf([&] { object.put(L"Count", L"abc"); });
    };
    for (int warmUp = 0; warmUp < 50; ++warmUp) round();
    const long before = support::outstandingAllocations();
    for (int time = 0; time < 1000; ++time) round();
    EXPECT_EQ(support::outstandingAllocations(), before);
}

TEST(OutstandingAllocations, KeptText_IsCounted)
{
    const long before = support::outstandingAllocations();
    EXPECT_GE(before, countingBegins);
    const BSTR kept = SysAllocStringLen(nullptr, 100'000);
    EXPECT_EQ(support::outstandingAllocations(), before + 1);
    SysFreeString(kept);
    EXPECT_EQ(support::outstandingAllocations(), before);
}
