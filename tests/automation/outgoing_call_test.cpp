// Busy servers, and knowing that a call is out.
#include "automation/com_ptr.h"
#include "automation/error.h"
#include "automation/object.h"
#include "automation/outgoing_call.h"
#include "automation/owners.h"
#include "support/raw_partner.h"

#include <gtest/gtest.h>

#include <functional>

using automation::AutomationError;
using automation::Object;
using automation::OutgoingCall;
using support::RawPartner;

namespace {

// Keeps whether each reference to it was given back as part of a call.
class CountedProxy final : public RawPartner {
public:
    using RawPartner::RawPartner;

    STDMETHODIMP_(ULONG) Release() override
    {
        releases.push_back(OutgoingCall::inProgress());
        return RawPartner::Release();
    }

    std::vector<bool> releases;
};

DWORD WINAPI lookElsewhere(void* answer)
{
    *static_cast<bool*>(answer) = OutgoingCall::inProgress();
    return 0;
}

// Answers `code` the first `times` times, then `last`.
std::function<HRESULT()> answering(HRESULT code, int times, HRESULT last = S_OK)
{
    return [=, left = times]() mutable { return left-- > 0 ? code : last; };
}

}

TEST(OutgoingCall, BusyServer_IsAskedAgainUntilItServes)
{
    for (const HRESULT busy : {RPC_E_SERVERCALL_RETRYLATER, RPC_E_CALL_REJECTED}) {
        RawPartner partner({{L"Count", 1}});
        partner.onCall = [answer = answering(busy, 3)](const RawPartner::Call& call) mutable {
            const HRESULT result = answer();
            if (SUCCEEDED(result)) {
                V_VT(call.result) = VT_I4;
                V_I4(call.result) = 42;
            }
            return result;
        };
        EXPECT_EQ(Object(&partner).get(L"Count").int32(), 42);
        EXPECT_EQ(partner.invocations.size(), 4u);
        EXPECT_EQ(partner.lookUps.size(), 1u);
    }
}

TEST(OutgoingCall, BusyServer_KeepsTheArgumentsForTheNextTry)
{
    RawPartner partner({{L"Take", 1}});
    std::vector<std::wstring> seen;
    partner.onCall = [&, answer = answering(RPC_E_CALL_REJECTED, 1)](const RawPartner::Call& call) mutable {
        seen.emplace_back(V_BSTR(&call.argument(0)));
        return answer();
    };
    Object(&partner).call(L"Take", {L"text"});
    EXPECT_EQ(seen, (std::vector<std::wstring>{L"text", L"text"}));
}

TEST(OutgoingCall, BusyNameLookUp_IsAskedAgain)
{
    RawPartner partner({{L"Count", 1}});
    partner.onLookUp = answering(RPC_E_SERVERCALL_RETRYLATER, 2);
    Object(&partner).call(L"Count");
    EXPECT_EQ(partner.lookUps.size(), 3u);
    EXPECT_EQ(partner.invocations.size(), 1u);
}

TEST(OutgoingCall, BusyServer_ThenAnotherFailure_EndsWithThatFailure)
{
    RawPartner partner({{L"Count", 1}});
    partner.onCall = [answer = answering(RPC_E_CALL_REJECTED, 2, E_ACCESSDENIED)](const RawPartner::Call&) mutable {
        return answer();
    };
    try {
        Object(&partner).call(L"Count");
        FAIL() << "no error";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.code(), E_ACCESSDENIED);
    }
    EXPECT_EQ(partner.invocations.size(), 3u);
}

TEST(OutgoingCall, AnyOtherAnswer_IsNotAskedAgain)
{
    for (const HRESULT code :
         {S_OK, S_FALSE, E_FAIL, E_PENDING, RPC_E_SERVERCALL_REJECTED, RPC_E_CALL_CANCELED, RPC_E_DISCONNECTED,
          RPC_E_SERVERFAULT, RPC_E_SERVER_DIED, RPC_E_CANTCALLOUT_ININPUTSYNCCALL,
          HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE), HRESULT_FROM_WIN32(RPC_S_SERVER_TOO_BUSY)}) {
        int attempts = 0;
        const OutgoingCall scope;
        EXPECT_EQ(scope.retryWhileBusy([&] {
            ++attempts;
            return code;
        }),
                  code);
        EXPECT_EQ(attempts, 1) << std::hex << code;
    }
}

TEST(OutgoingCall, Pauses_GrowWithTheTimeWaited)
{
    EXPECT_GT(OutgoingCall::retryDelay(0), 0u);
    DWORD last = 0;
    for (DWORD waited = 0; waited <= OutgoingCall::busyTimeout; waited += 10) {
        const DWORD pause = OutgoingCall::retryDelay(waited);
        EXPECT_GE(pause, last);
        last = pause;
    }
    EXPECT_GT(last, OutgoingCall::retryDelay(0));
    EXPECT_LE(last, 1000u) << "a server that is free again is not kept waiting";
}

// The one test that waits for the whole time limit.
TEST(OutgoingCall, ServerThatIsAlwaysBusy_EndsWithAnOrdinaryError)
{
    RawPartner partner({{L"Count", 1}});
    partner.onCall = [](const RawPartner::Call&) { return RPC_E_SERVERCALL_RETRYLATER; };
    const Object object(&partner);
    try {
        object.get(L"Count");
        FAIL() << "no error";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.code(), RPC_E_SERVERCALL_RETRYLATER);
        EXPECT_EQ(error.member(), L"Count");
    }
    EXPECT_GT(partner.invocations.size(), 10u);
    EXPECT_FALSE(OutgoingCall::inProgress());
    partner.onCall = nullptr;
    object.get(L"Count"); // and the object is as good as before
}

TEST(OutgoingCall, InProgress_IsTrueInsideACallAndANameLookUpOnly)
{
    RawPartner partner({{L"Look", 1}});
    int seen = 0;
    partner.onLookUp = [&] {
        seen += OutgoingCall::inProgress();
        return S_OK;
    };
    partner.onCall = [&](const RawPartner::Call&) {
        seen += OutgoingCall::inProgress();
        return S_OK;
    };
    const Object object(&partner);
    EXPECT_FALSE(OutgoingCall::inProgress());
    object.get(L"Look");
    EXPECT_EQ(seen, 2);
    EXPECT_FALSE(OutgoingCall::inProgress());
    object.put(L"Look", true);
    object.call(L"Look");
    EXPECT_EQ(seen, 4);
    EXPECT_FALSE(OutgoingCall::inProgress());
}

TEST(OutgoingCall, InProgress_EndsWithAFailedCallToo)
{
    RawPartner partner({{L"Fail", 1}});
    partner.onCall = [](const RawPartner::Call&) { return E_FAIL; };
    EXPECT_THROW(Object(&partner).get(L"Fail"), AutomationError);
    EXPECT_FALSE(OutgoingCall::inProgress());
}

TEST(OutgoingCall, InProgress_LastsUntilTheOuterOfTwoNestedCallsReturns)
{
    RawPartner inner({{L"Look", 1}});
    RawPartner outer({{L"Look", 1}});
    bool afterInner = false;
    outer.onCall = [&](const RawPartner::Call&) {
        Object(&inner).call(L"Look");
        afterInner = OutgoingCall::inProgress();
        return S_OK;
    };
    Object(&outer).call(L"Look");
    EXPECT_TRUE(afterInner);
    EXPECT_FALSE(OutgoingCall::inProgress());
}

TEST(OutgoingCall, InProgress_ConcernsTheCallingThreadOnly)
{
    const OutgoingCall scope;
    bool elsewhere = true;
    const automation::Handle thread(CreateThread(nullptr, 0, lookElsewhere, &elsewhere, 0, nullptr));
    WaitForSingleObject(thread.get(), INFINITE);
    EXPECT_TRUE(OutgoingCall::inProgress());
    EXPECT_FALSE(elsewhere);
}

// The last reference to an object of another process goes out, and messages come in meanwhile.
TEST(OutgoingCall, InProgress_IsTrueWhileAnObjectsReferenceIsGivenBack)
{
    CountedProxy proxy;
    {
        const Object temporary(&proxy);
    }
    Object replaced(&proxy);
    replaced = Object();
    EXPECT_EQ(proxy.releases, (std::vector{true, true}));
    EXPECT_FALSE(OutgoingCall::inProgress());
}

TEST(OutgoingCall, InProgress_IsTrueWhileAValueGivesItsObjectsBack)
{
    CountedProxy proxy;
    {
        const automation::Value value{Object(&proxy)};
    }
    automation::Value refilled{Object(&proxy)};
    refilled.receive();
    {
        automation::Value array;
        VARIANT* const filled = array.receive();
        V_VT(filled) = VT_ARRAY | VT_DISPATCH;
        V_ARRAY(filled) = SafeArrayCreateVector(VT_DISPATCH, 0, 1);
        LONG index = 0;
        SafeArrayPutElement(V_ARRAY(filled), &index, &proxy);
    }
    EXPECT_EQ(proxy.releases, (std::vector<bool>(5, true))) << "three values, and the objects that two came from";
}

TEST(OutgoingCall, InProgress_IsTrueWhileAnInterfacePointerIsGivenBack)
{
    CountedProxy proxy;
    automation::ComPtr<IDispatch> pointer(&proxy);
    pointer.reset();
    pointer.reset();
    EXPECT_EQ(proxy.releases, std::vector{true});
}

TEST(OutgoingCall, StartOfOutermost_IsKeptWhileOneIsOut)
{
    const std::atomic<DWORD>& begin = OutgoingCall::outermostStartTick();
    EXPECT_EQ(begin, 0u);
    {
        const OutgoingCall outermost;
        const DWORD first = begin;
        EXPECT_NE(first, 0u);
        while (GetTickCount() == first) Sleep(1);
        {
            const OutgoingCall inner;
        }
        EXPECT_EQ(begin, first);
    }
    EXPECT_EQ(begin, 0u);
}
