// The connection point that the server side offers.
#include "automation/server/event_point.h"

#include "sample_object.h"
#include "support/raw_partner.h"

#include <gtest/gtest.h>

using automation::ComPtr;
using partners::Sample;
using support::RawPartner;
namespace server = automation::server;

namespace {

ComPtr<Sample> makeSample()
{
    return server::make<Sample>(partners::SampleManners{});
}

// A subscriber that is no automation object.
class PlainSink final : public IUnknown {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** result) override
    {
        *result = iid == IID_IUnknown ? this : nullptr;
        return *result ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
};

DWORD advise(Sample& sample, IUnknown& sink)
{
    DWORD cookie = 0;
    EXPECT_EQ(sample.events.Advise(&sink, &cookie), S_OK);
    return cookie;
}

}

TEST(EventPoint, Subscribers_AreCalledInTheOrderOfTheirSubscription)
{
    const auto sample = makeSample();
    std::string order;
    RawPartner first;
    RawPartner second;
    first.onCall = [&](const RawPartner::Call&) {
        order += "1";
        return S_OK;
    };
    second.onCall = [&](const RawPartner::Call&) {
        order += "2";
        return S_OK;
    };
    const DWORD one = advise(*sample.get(), first);
    const DWORD two = advise(*sample.get(), second);
    EXPECT_EQ(sample->events.raise(7, {}), 2);
    EXPECT_EQ(order, "12");
    sample->events.Unadvise(one);
    sample->events.Unadvise(two);
}

TEST(EventPoint, Event_IsAMethodCallWithItsArguments)
{
    const auto sample = makeSample();
    RawPartner sink;
    sink.onCall = [](const RawPartner::Call& call) {
        EXPECT_STREQ(V_BSTR(&call.argument(0)), L"first");
        EXPECT_EQ(V_I4(&call.argument(1)), 2);
        return S_OK;
    };
    const DWORD cookie = advise(*sample.get(), sink);
    sample->events.raise(7, {L"first", std::int32_t{2}});
    ASSERT_EQ(sink.invocations.size(), 1u);
    EXPECT_EQ(sink.invocations[0].id, 7);
    EXPECT_EQ(sink.invocations[0].flags, DISPATCH_METHOD);
    EXPECT_EQ(sink.invocations[0].types, (std::vector<VARTYPE>{VT_BSTR, VT_I4}));
    sample->events.Unadvise(cookie);
}

TEST(EventPoint, SubscriberThatIsGone_IsDropped)
{
    const auto sample = makeSample();
    for (const HRESULT gone : {RPC_E_DISCONNECTED, RPC_E_SERVER_DIED, RPC_E_SERVER_DIED_DNE,
                               HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE), HRESULT_FROM_WIN32(RPC_S_CALL_FAILED)}) {
        RawPartner sink;
        advise(*sample.get(), sink);
        sink.onCall = [gone](const RawPartner::Call&) { return gone; };
        EXPECT_EQ(sample->events.raise(7, {}), 0);
        EXPECT_EQ(sample->events.subscribers(), 0u) << std::hex << gone;
    }
}

TEST(EventPoint, SubscriberThatMerelyFails_Stays)
{
    const auto sample = makeSample();
    RawPartner sink;
    const DWORD cookie = advise(*sample.get(), sink);
    sink.onCall = [](const RawPartner::Call&) { return E_FAIL; };
    EXPECT_EQ(sample->events.raise(7, {}), 0);
    EXPECT_EQ(sample->events.subscribers(), 1u);
    sample->events.Unadvise(cookie);
}

TEST(EventPoint, SubscriberThatLeavesDuringTheEvent_IsNotCalledAgain)
{
    const auto sample = makeSample();
    RawPartner sink;
    const DWORD cookie = advise(*sample.get(), sink);
    sink.onCall = [&](const RawPartner::Call&) { return sample->events.Unadvise(cookie); };
    EXPECT_EQ(sample->events.raise(7, {}), 1);
    EXPECT_EQ(sample->events.raise(7, {}), 0);
    EXPECT_EQ(sink.invocations.size(), 1u);
}

TEST(EventPoint, SubscriberThatCannotReceive_IsRefused)
{
    const auto sample = makeSample();
    PlainSink sink;
    DWORD cookie = 99;
    EXPECT_EQ(sample->events.Advise(&sink, &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(cookie, 0u);
    EXPECT_EQ(sample->events.Advise(nullptr, &cookie), CONNECT_E_CANNOTCONNECT);
}

TEST(EventPoint, UnknownCookie_IsNoConnection)
{
    const auto sample = makeSample();
    EXPECT_EQ(sample->events.Unadvise(1), CONNECT_E_NOCONNECTION);
    RawPartner sink;
    const DWORD cookie = advise(*sample.get(), sink);
    EXPECT_EQ(sample->events.Unadvise(cookie), S_OK);
    EXPECT_EQ(sample->events.Unadvise(cookie), CONNECT_E_NOCONNECTION);
}

TEST(EventPoint, Container_FindsItsOneSourceOnly)
{
    const auto sample = makeSample();
    const auto container =
        automation::query<IConnectionPointContainer>(sample->events.container(), IID_IConnectionPointContainer);
    ASSERT_TRUE(container);
    ComPtr<IConnectionPoint> point;
    EXPECT_EQ(container->FindConnectionPoint(partners::sampleEvents, point.receive()), S_OK);
    IID iid;
    EXPECT_EQ(point->GetConnectionInterface(&iid), S_OK);
    EXPECT_EQ(iid, partners::sampleEvents);
    EXPECT_EQ(container->FindConnectionPoint(partners::otherEvents, point.receive()), CONNECT_E_NOCONNECTION);
    EXPECT_FALSE(point);
}

TEST(EventPoint, Container_EnumeratesItsOnePoint)
{
    const auto sample = makeSample();
    ComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(sample->events.EnumConnectionPoints(points.receive()), S_OK);
    ComPtr<IConnectionPoint> point;
    ULONG fetched = 0;
    EXPECT_EQ(points->Next(1, point.receive(), &fetched), S_OK);
    EXPECT_EQ(fetched, 1u);
    ComPtr<IConnectionPointContainer> container;
    EXPECT_EQ(point->GetConnectionPointContainer(container.receive()), S_OK);
    EXPECT_EQ(container.get(), sample->events.container());
    EXPECT_EQ(points->Next(1, point.receive(), &fetched), S_FALSE);
    EXPECT_EQ(fetched, 0u);
    EXPECT_EQ(points->Reset(), S_OK);
    EXPECT_EQ(points->Next(1, point.receive(), nullptr), S_OK);
}

TEST(EventPoint, Point_KeepsItsObjectAlive)
{
    auto sample = makeSample();
    ComPtr<IConnectionPoint> point;
    ASSERT_EQ(sample->events.FindConnectionPoint(partners::sampleEvents, point.receive()), S_OK);
    sample.reset();
    EXPECT_EQ(server::Dispatch::liveCount(), 1);
    point.reset();
    EXPECT_EQ(server::Dispatch::liveCount(), 0);
}
