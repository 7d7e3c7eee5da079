#include "softphone_fixture.h"

#include "automation/subscription.h"

#include <gtest/gtest.h>

namespace {

using automation::EventArguments;
using automation::Object;
using automation::Subscription;
using namespace desk::softphone;

class SoftphoneEvents : public SoftphoneFixture {
protected:
    // Keeps the events of one object as texts, in their order.
    Subscription listen(const Object& object)
    {
        automation::EventHandlers handlers;
        for (const wchar_t* name : {L"OnQuit", L"OnLineNewCall", L"OnHistoricNewItem", L"OnHistoricDeleteItem",
                                    L"OnRepertoryNewEntry", L"OnRepertoryDeleteEntry"})
            handlers.emplace(name, [this, name](EventArguments arguments) { keep(name, arguments); });
        return Subscription(object, L"", std::move(handlers));
    }

    void keep(const std::wstring& name, const EventArguments& arguments)
    {
        std::wstring text = name;
        for (const automation::Value& argument : arguments) {
            const bool record = argument.type() == VT_DISPATCH;
            text += L" " + (record ? argument.object().get(L"LastName").text() : argument.text());
        }
        heard.push_back(text);
    }

    using Texts = std::vector<std::wstring>;
    Texts heard;
};

}

TEST_F(SoftphoneEvents, EachObject_TellsItsOwn_ByName)
{
    const Subscription subscriptions[] = {listen(application()), listen(line()), listen(history()),
                                          listen(addressBook())};
    softphone.ring({{L"0123", L"Weber", L"Max"}, true, L"99"});
    softphone.addHistory({{5, 6}, {L"0123", L"Meyer", L""}, true, 45000, 45000, 0, 0});
    softphone.removeHistory({5, 6});
    softphone.addEntry({{-7, 8}, {L"1", L"Blanc", L""}});
    softphone.removeEntry({-7, 8});
    softphone.quit();
    softphone.quit();
    EXPECT_EQ(heard, (Texts{L"OnLineNewCall Weber", L"OnHistoricNewItem Meyer", L"OnHistoricDeleteItem 5 6",
                            L"OnRepertoryNewEntry Blanc", L"OnRepertoryDeleteEntry -7 8", L"OnQuit"}));
}

TEST_F(SoftphoneEvents, NewCall_CarriesTheCall)
{
    Object call;
    const Subscription subscription(
        line(), L"", {{L"onlinenewcall", [&](EventArguments arguments) { call = arguments.at(0).object(); }}});
    softphone.ring({{L"0123", L"Weber", L"Max"}, true, L"99"});
    EXPECT_EQ(call.get(L"Number").text(), L"0123");
    EXPECT_EQ(call.get(L"LastName").text(), L"Weber");
    EXPECT_EQ(call.get(L"FirstName").text(), L"Max");
    EXPECT_EQ(call.get(L"DestinationNumber").text(), L"99");
    EXPECT_EQ(call.get(L"Incoming").type(), VT_BOOL);
    EXPECT_TRUE(call.get(L"Incoming").isTrue());
}

TEST_F(SoftphoneEvents, Subscribers_AreCounted)
{
    const Subscription first = listen(history());
    {
        const Subscription second = listen(history());
        EXPECT_EQ(softphone.subscribers()[2], (std::pair<std::wstring, std::size_t>{L"History", 2}));
    }
    EXPECT_EQ(softphone.subscribers()[2].second, 1u);
    EXPECT_EQ(softphone.subscribers()[0].second, 0u);
}

TEST_F(SoftphoneEvents, Events_AreFoundByEachWayAlone)
{
    const Discovery ways[] = {{true, true, false}, {false, true, false}, {false, false, true}};
    for (const Discovery& way : ways) {
        softphone.phone().discovery = way;
        const Subscription subscription = listen(history());
        softphone.addHistory({{}, {L"1", L"Weber", L""}, true, 45000, 45000, 0, 0});
    }
    EXPECT_EQ(heard, (Texts{3, L"OnHistoricNewItem Weber"}));
}

TEST_F(SoftphoneEvents, AllWaysClosed_NoEventsAreFound)
{
    softphone.phone().discovery = {false, false, false};
    EXPECT_THROW(listen(history()), automation::AutomationError);
}

TEST_F(SoftphoneEvents, WaitingEvents_AreToldLater_InOrder)
{
    int told = 0;
    softphone.eventWaits = [&] { ++told; };
    const Subscription subscription = listen(addressBook());
    softphone.addEntry({{1, 1}, {L"", L"Blanc", L""}});
    softphone.removeEntry({1, 1});
    EXPECT_EQ(told, 2);
    EXPECT_EQ(softphone.waiting(), 2u);
    EXPECT_TRUE(heard.empty());
    softphone.deliver();
    EXPECT_EQ(heard, (Texts{L"OnRepertoryNewEntry Blanc", L"OnRepertoryDeleteEntry 1 1"}));
    EXPECT_EQ(softphone.waiting(), 0u);
}

TEST_F(SoftphoneEvents, EventDuringAnEvent_WaitsForItsTurn)
{
    const Subscription subscription(line(), L"", {{L"OnLineNewCall", [&](EventArguments) {
                                                       heard.emplace_back(L"call begins");
                                                       softphone.addEntry({{1, 1}, {L"", L"Blanc", L""}});
                                                       heard.emplace_back(L"call ends");
                                                   }}});
    const Subscription entries = listen(addressBook());
    softphone.ring({});
    EXPECT_EQ(heard, (Texts{L"call begins", L"call ends", L"OnRepertoryNewEntry Blanc"}));
}
