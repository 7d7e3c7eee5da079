// Subscriptions: what arrives, what does not, and what stays behind.
#include "automation/subscription.h"

#include "automation/error.h"
#include "automation/outgoing_call.h"
#include "sample_object.h"

#include <gtest/gtest.h>

#include <olectl.h>

using automation::AutomationError;
using automation::ComPtr;
using automation::EventArguments;
using automation::EventHandlers;
using automation::Object;
using automation::Subscription;
using automation::Value;
using partners::Sample;
using partners::SampleLibrary;
using partners::SampleManners;
namespace server = automation::server;

namespace {

class Events : public testing::Test {
protected:
    Events() { manners.classInfo = library.type(partners::sampleClass); }

    ComPtr<Sample> makeSample() const { return server::make<Sample>(manners); }

    EventHandlers collecting(const wchar_t* event)
    {
        return {{event, [this](EventArguments arguments) { received.push_back(std::move(arguments)); }}};
    }

    const SampleLibrary library;
    SampleManners manners;
    std::vector<EventArguments> received;
};

// An event source that keeps its sink for ever, as a badly written one does.
class KeepingPoint final : public IConnectionPointContainer, public IConnectionPoint {
public:
    explicit KeepingPoint(IUnknown* owner) : owner_(owner) {}

    ComPtr<IDispatch> sink;
    HRESULT onAdvise = S_OK;
    int unadvised = 0;

    STDMETHODIMP QueryInterface(REFIID iid, void** result) override
    {
        if (iid == IID_IConnectionPoint) {
            *result = static_cast<IConnectionPoint*>(this);
            AddRef();
            return S_OK;
        }
        return owner_->QueryInterface(iid, result);
    }
    STDMETHODIMP_(ULONG) AddRef() override { return owner_->AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return owner_->Release(); }
    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
    STDMETHODIMP FindConnectionPoint(REFIID, IConnectionPoint** point) override
    {
        *point = this;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP GetConnectionInterface(IID*) override { return E_NOTIMPL; }
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer**) override { return E_NOTIMPL; }
    STDMETHODIMP Advise(IUnknown* offered, DWORD* cookie) override
    {
        EXPECT_TRUE(automation::OutgoingCall::inProgress());
        if (FAILED(onAdvise)) return onAdvise;
        *cookie = 1;
        // A source may raise an event before it has answered.
        offered->QueryInterface(partners::sampleEvents, sink.receiveVoid());
        raise(7, L"at once");
        return S_OK;
    }
    STDMETHODIMP Unadvise(DWORD) override
    {
        ++unadvised;
        raise(7, L"one more");
        return E_FAIL;
    }
    STDMETHODIMP EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

    HRESULT raise(DISPID event, const wchar_t* text)
    {
        Value argument(text);
        VARIANT copy = argument.variant();
        DISPPARAMS parameters{&copy, nullptr, 1, 0};
        return sink->Invoke(event, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
    }

private:
    IUnknown* owner_;
};

class KeepingSample final : public server::Dispatch {
public:
    explicit KeepingSample(ComPtr<ITypeInfo> type) : point(static_cast<IDispatch*>(this)), ownType_(std::move(type)) {}

    KeepingPoint point;

    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** type) noexcept override
    {
        *type = ownType_.get();
        (*type)->AddRef();
        return S_OK;
    }

protected:
    IUnknown* interfaceOf(REFIID iid) noexcept override
    {
        if (iid == IID_IConnectionPointContainer) return static_cast<IConnectionPointContainer*>(&point);
        return Dispatch::interfaceOf(iid);
    }
    DISPID idOf(std::wstring_view) override { return DISPID_UNKNOWN; }
    Value answer(const server::IncomingCall&) override { return {}; }

private:
    const ComPtr<ITypeInfo> ownType_;
};

}

TEST_F(Events, RaisedEvent_ArrivesWithItsArgumentsFromLeftToRight)
{
    const auto sample = makeSample();
    const Subscription subscription(Object(sample.get()), L"", collecting(L"OnSample"));
    EXPECT_EQ(sample->events.raise(7, {L"first", std::int32_t{2}, Object()}), 1);
    ASSERT_EQ(received.size(), 1u);
    ASSERT_EQ(received[0].size(), 3u);
    EXPECT_EQ(received[0][0].text(), L"first");
    EXPECT_EQ(received[0][1].int32(), 2);
    EXPECT_EQ(received[0][2].type(), VT_DISPATCH);
}

TEST_F(Events, EventName_IsFoundWithoutRegardToCase)
{
    const auto sample = makeSample();
    const Subscription subscription(Object(sample.get()), L"", collecting(L"ONSAMPLE"));
    sample->events.raise(7, {});
    EXPECT_EQ(received.size(), 1u);
}

TEST_F(Events, EventsWithoutHandler_AreIgnored)
{
    const auto sample = makeSample();
    const Subscription subscription(Object(sample.get()), L"", collecting(L"OnSample"));
    EXPECT_EQ(sample->events.raise(8, {}), 1) << "and the source is told that all is well";
    EXPECT_EQ(sample->events.raise(12345, {L"unknown"}), 1);
    EXPECT_TRUE(received.empty());
    sample->events.raise(7, {});
    EXPECT_EQ(received.size(), 1u);
}

TEST_F(Events, ArgumentByReference_IsHandedOverAsItsValue)
{
    const auto sample = makeSample();
    const Subscription subscription(Object(sample.get()), L"", collecting(L"OnSample"));
    Value text(L"now");
    sample->events.raise(7, {byRef(text)});
    text = Value(L"later");
    ASSERT_EQ(received.size(), 1u);
    EXPECT_EQ(received[0][0].type(), VT_BSTR);
    EXPECT_EQ(received[0][0].text(), L"now");
}

TEST_F(Events, AfterDetach_NothingArrives_AndTheSourceIsFree)
{
    const auto sample = makeSample();
    Subscription subscription(Object(sample.get()), L"", collecting(L"OnSample"));
    EXPECT_TRUE(subscription);
    subscription.detach();
    EXPECT_FALSE(subscription);
    EXPECT_EQ(sample->events.subscribers(), 0u);
    EXPECT_EQ(sample->events.raise(7, {}), 0);
    EXPECT_TRUE(received.empty());
    EXPECT_EQ(automation::liveEventSinks(), 0);
}

TEST_F(Events, EndOfTheSubscription_Detaches)
{
    const auto sample = makeSample();
    {
        const Subscription subscription(Object(sample.get()), L"", collecting(L"OnSample"));
        EXPECT_EQ(sample->events.subscribers(), 1u);
        EXPECT_EQ(automation::liveEventSinks(), 1);
    }
    EXPECT_EQ(sample->events.subscribers(), 0u);
}

TEST_F(Events, NewSubscriptionInPlaceOfAnOldOne_EndsTheOldOne)
{
    const auto first = makeSample();
    const auto second = makeSample();
    Subscription subscription(Object(first.get()), L"", collecting(L"OnSample"));
    subscription = Subscription(Object(second.get()), L"", collecting(L"OnSample"));
    EXPECT_EQ(first->events.subscribers(), 0u);
    EXPECT_EQ(second->events.subscribers(), 1u);
    second->events.raise(7, {});
    EXPECT_EQ(received.size(), 1u);
}

TEST_F(Events, SourceThatKeepsTheSink_ReachesNobodyAfterDetach)
{
    const auto sample = server::make<KeepingSample>(library.type(partners::sampleInterface));
    Subscription subscription(Object(sample.get()), L"", collecting(L"OnSample"));
    sample->point.raise(7, L"in time");
    EXPECT_EQ(received.size(), 2u);
    subscription.detach();
    EXPECT_EQ(sample->point.unadvised, 1);
    EXPECT_EQ(sample->point.raise(7, L"too late"), S_OK);
    EXPECT_EQ(received.size(), 2u) << "neither during nor after the end of the subscription";
    sample->point.sink.reset();
    EXPECT_EQ(automation::liveEventSinks(), 0);
}

TEST_F(Events, EventRaisedWithinAdvise_Arrives)
{
    const auto sample = server::make<KeepingSample>(library.type(partners::sampleInterface));
    Subscription subscription(Object(sample.get()), L"", collecting(L"OnSample"));
    ASSERT_EQ(received.size(), 1u);
    EXPECT_EQ(received[0][0].text(), L"at once");
    subscription.detach();
    sample->point.sink.reset();
}

TEST_F(Events, Sink_AnswersItsSourceInterfaceDispatchAndUnknownOnly)
{
    const auto sample = server::make<KeepingSample>(library.type(partners::sampleInterface));
    Subscription subscription(Object(sample.get()), L"", collecting(L"OnSample"));
    for (const IID& iid : {IID_IUnknown, IID_IDispatch, partners::sampleEvents})
        EXPECT_TRUE(automation::query<IUnknown>(sample->point.sink.get(), iid));
    EXPECT_FALSE(automation::query<IUnknown>(sample->point.sink.get(), partners::otherEvents));
    EXPECT_FALSE(automation::query<IUnknown>(sample->point.sink.get(), IID_IConnectionPoint));
    subscription.detach();
    sample->point.sink.reset();
}

TEST_F(Events, RefusedSubscription_IsAnError_AndLeavesNoSink)
{
    const auto sample = server::make<KeepingSample>(library.type(partners::sampleInterface));
    sample->point.onAdvise = CONNECT_E_ADVISELIMIT;
    try {
        const Subscription subscription(Object(sample.get()), L"", collecting(L"OnSample"));
        FAIL() << "no error";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.code(), CONNECT_E_ADVISELIMIT);
    }
    EXPECT_EQ(automation::liveEventSinks(), 0);
}

TEST_F(Events, ObjectWithoutConnectionPoints_CannotBeSubscribedTo)
{
    manners = {};
    const auto sample = makeSample();
    EXPECT_THROW(Subscription(Object(sample.get()), L"", {}), AutomationError);
    EXPECT_THROW(Subscription(Object(), L"", {}), AutomationError);
}

TEST_F(Events, HandlerThatThrows_HarmsNeitherTheSourceNorTheNextEvent)
{
    const auto sample = makeSample();
    int calls = 0;
    const Subscription subscription(Object(sample.get()), L"", {{L"OnSample", [&](EventArguments arguments) {
                                                                     ++calls;
                                                                     arguments.at(5).text();
                                                                 }}});
    EXPECT_EQ(sample->events.raise(7, {}), 1);
    EXPECT_EQ(sample->events.raise(7, {}), 1);
    EXPECT_EQ(calls, 2);
}

TEST_F(Events, HandlerThatThrowsWhatIsNoStandardException_HarmsNobodyEither)
{
    const auto sample = makeSample();
    int calls = 0;
    const Subscription subscription(Object(sample.get()), L"", {{L"OnSample", [&](EventArguments) {
                                                                     ++calls;
                                                                     throw server::Failure{E_PENDING};
                                                                 }}});
    EXPECT_EQ(sample->events.raise(7, {}), 1);
    EXPECT_EQ(sample->events.raise(7, {}), 1);
    EXPECT_EQ(calls, 2);
}

TEST_F(Events, SubscriptionEndedByItsOwnHandler_EndsInPeace)
{
    const auto sample = makeSample();
    Subscription subscription;
    int calls = 0;
    subscription = Subscription(Object(sample.get()), L"", {{L"OnSample", [&](EventArguments) {
                                                                 ++calls;
                                                                 subscription.detach();
                                                             }}});
    sample->events.raise(7, {});
    sample->events.raise(7, {});
    EXPECT_EQ(calls, 1);
}
