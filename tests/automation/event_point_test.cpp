// The connection point that the server side offers.
#include "automation/server/event_point.h"

#include "support/raw_partner.h"
#include "thing.h"

#include <gtest/gtest.h>

using automation::ComPtr;
using partners::Thing;
using support::RawPartner;
namespace server = automation::server;

namespace {

ComPtr<Thing> makeThing()
{
    return server::make<Thing>(partners::ThingManners{});
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

DWORD advise(Thing& thing, IUnknown& sink)
{
    DWORD cookie = 0;
    EXPECT_EQ(thing.events.Advise(&sink, &cookie), S_OK);
    return cookie;
}

}

TEST(EventPoint, Subscribers_AreCalledInTheOrderOfTheirSubscription)
{
    const auto thing = makeThing();
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
    const DWORD one = advise(*thing.get(), first);
    const DWORD two = advise(*thing.get(), second);
    EXPECT_EQ(thing->events.raise(7, {}), 2);
    EXPECT_EQ(order, "12");
    thing->events.Unadvise(one);
    thing->events.Unadvise(two);
}

TEST(EventPoint, Event_IsAMethodCallWithItsArguments)
{
    const auto thing = makeThing();
    RawPartner sink;
    sink.onCall = [](const RawPartner::Call& call) {
        EXPECT_STREQ(V_BSTR(&call.argument(0)), L"first");
        EXPECT_EQ(V_I4(&call.argument(1)), 2);
        return S_OK;
    };
    const DWORD cookie = advise(*thing.get(), sink);
    thing->events.raise(7, {L"first", std::int32_t{2}});
    ASSERT_EQ(sink.invocations.size(), 1u);
    EXPECT_EQ(sink.invocations[0].id, 7);
    EXPECT_EQ(sink.invocations[0].flags, DISPATCH_METHOD);
    EXPECT_EQ(sink.invocations[0].types, (std::vector<VARTYPE>{VT_BSTR, VT_I4}));
    thing->events.Unadvise(cookie);
}

TEST(EventPoint, SubscriberThatIsGone_IsDropped)
{
    const auto thing = makeThing();
    for (const HRESULT gone : {RPC_E_DISCONNECTED, RPC_E_SERVER_DIED, RPC_E_SERVER_DIED_DNE,
                               HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE), HRESULT_FROM_WIN32(RPC_S_CALL_FAILED)}) {
        RawPartner sink;
        advise(*thing.get(), sink);
        sink.onCall = [gone](const RawPartner::Call&) { return gone; };
        EXPECT_EQ(thing->events.raise(7, {}), 0);
        EXPECT_EQ(thing->events.subscribers(), 0u) << std::hex << gone;
    }
}

TEST(EventPoint, SubscriberThatMerelyFails_Stays)
{
    const auto thing = makeThing();
    RawPartner sink;
    const DWORD cookie = advise(*thing.get(), sink);
    sink.onCall = [](const RawPartner::Call&) { return E_FAIL; };
    EXPECT_EQ(thing->events.raise(7, {}), 0);
    EXPECT_EQ(thing->events.subscribers(), 1u);
    thing->events.Unadvise(cookie);
}

TEST(EventPoint, SubscriberThatLeavesDuringTheEvent_IsNotCalledAgain)
{
    const auto thing = makeThing();
    RawPartner sink;
    const DWORD cookie = advise(*thing.get(), sink);
    sink.onCall = [&](const RawPartner::Call&) { return thing->events.Unadvise(cookie); };
    EXPECT_EQ(thing->events.raise(7, {}), 1);
    EXPECT_EQ(thing->events.raise(7, {}), 0);
    EXPECT_EQ(sink.invocations.size(), 1u);
}

TEST(EventPoint, SubscriberThatCannotReceive_IsRefused)
{
    const auto thing = makeThing();
    PlainSink sink;
    DWORD cookie = 99;
    EXPECT_EQ(thing->events.Advise(&sink, &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(cookie, 0u);
    EXPECT_EQ(thing->events.Advise(nullptr, &cookie), CONNECT_E_CANNOTCONNECT);
}

TEST(EventPoint, UnknownCookie_IsNoConnection)
{
    const auto thing = makeThing();
    EXPECT_EQ(thing->events.Unadvise(1), CONNECT_E_NOCONNECTION);
    RawPartner sink;
    const DWORD cookie = advise(*thing.get(), sink);
    EXPECT_EQ(thing->events.Unadvise(cookie), S_OK);
    EXPECT_EQ(thing->events.Unadvise(cookie), CONNECT_E_NOCONNECTION);
}

TEST(EventPoint, Container_FindsItsOneSourceOnly)
{
    const auto thing = makeThing();
    const auto container =
        automation::query<IConnectionPointContainer>(thing->events.container(), IID_IConnectionPointContainer);
    ASSERT_TRUE(container);
    ComPtr<IConnectionPoint> point;
    EXPECT_EQ(container->FindConnectionPoint(partners::thingEvents, point.receive()), S_OK);
    IID iid;
    EXPECT_EQ(point->GetConnectionInterface(&iid), S_OK);
    EXPECT_EQ(iid, partners::thingEvents);
    EXPECT_EQ(container->FindConnectionPoint(partners::otherEvents, point.receive()), CONNECT_E_NOCONNECTION);
    EXPECT_FALSE(point);
}

TEST(EventPoint, Container_EnumeratesItsOnePoint)
{
    const auto thing = makeThing();
    ComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(thing->events.EnumConnectionPoints(points.receive()), S_OK);
    ComPtr<IConnectionPoint> point;
    ULONG fetched = 0;
    EXPECT_EQ(points->Next(1, point.receive(), &fetched), S_OK);
    EXPECT_EQ(fetched, 1u);
    ComPtr<IConnectionPointContainer> container;
    EXPECT_EQ(point->GetConnectionPointContainer(container.receive()), S_OK);
    EXPECT_EQ(container.get(), thing->events.container());
    EXPECT_EQ(points->Next(1, point.receive(), &fetched), S_FALSE);
    EXPECT_EQ(fetched, 0u);
    EXPECT_EQ(points->Reset(), S_OK);
    EXPECT_EQ(points->Next(1, point.receive(), nullptr), S_OK);
}

TEST(EventPoint, Point_KeepsItsObjectAlive)
{
    auto thing = makeThing();
    ComPtr<IConnectionPoint> point;
    ASSERT_EQ(thing->events.FindConnectionPoint(partners::thingEvents, point.receive()), S_OK);
    thing.reset();
    EXPECT_EQ(server::Dispatch::live(), 1);
    point.reset();
    EXPECT_EQ(server::Dispatch::live(), 0);
}
