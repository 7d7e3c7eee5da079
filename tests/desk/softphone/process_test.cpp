#include "automation/error.h"
#include "automation/subscription.h"
#include "desk/common/control_pipe.h"
#include "desk/softphone/guids.h"
#include "support/dummy_program.h"
#include "support/running_partner.h"

#include <ocidl.h>
#include <olectl.h>

#include <gtest/gtest.h>

#include <functional>

namespace {

using automation::AutomationError;
using automation::EventArguments;
using automation::Object;
using automation::Subscription;
using support::Process;
using support::eventually;

constexpr wchar_t progId[] = L"Pavex.Application";

std::wstring ask(std::wstring_view request)
{
    return desk::ask(L"pavex", request);
}

class SoftphoneProcess : public testing::Test {
protected:
    static Object application() { return Object::create(progId); }
    static Object history() { return application().get(11).object(); }

    // Keeps the last names of new history items.
    Subscription listen(const Object& object)
    {
        return Subscription(object, progId, {{L"OnHistoricNewItem", [this](EventArguments arguments) {
                                                  heard.push_back(arguments.at(0).object().get(L"LastName").text());
                                              }}});
    }

    // Closes ways of finding the events, and expects that the events are found.
    void expectEventsWithout(std::initializer_list<const wchar_t*> closedWays)
    {
        for (const std::wstring way : closedWays) EXPECT_EQ(ask(L"discovery " + way + L" off"), L"ok");
        const Subscription subscription = listen(history());
        EXPECT_EQ(ask(L"history add last=\"van der Berg\""), L"1.1");
        EXPECT_TRUE(eventually([this] { return !heard.empty(); }));
        EXPECT_EQ(heard, std::vector<std::wstring>{L"van der Berg"});
    }

    support::RunningPartner softphone{{L"pavex.exe", L"pavex", progId}};
    std::vector<std::wstring> heard;
};

// A second client process, subscribed to new calls.
class Subscriber {
public:
    explicit Subscriber(const std::wstring& delay)
        : subscribed_(CreateEventW(nullptr, TRUE, FALSE, L"desk-softphone-subscribed")),
          process_(support::command(L"desk_softphone_subscriber.exe") + L" desk-softphone-subscribed " + delay)
    {
        EXPECT_TRUE(eventually([this] { return WaitForSingleObject(subscribed_.get(), 0) == WAIT_OBJECT_0; }));
    }
    void kill() const { process_.kill(); }

private:
    const automation::Handle subscribed_;
    const Process process_;
};

}

TEST_F(SoftphoneProcess, Events_AreFoundByClassInfo2)
{
    // The second form of class information needs the first, so that it works
    // is seen from its own answer.
    const auto provider = automation::query<IProvideClassInfo2>(history().dispatch(), IID_IProvideClassInfo2);
    ASSERT_TRUE(provider);
    GUID source = GUID_NULL;
    EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &source), S_OK);
    EXPECT_EQ(source, desk::softphone::historyEventsId);
    expectEventsWithout({L"typeinfo"});
}

TEST_F(SoftphoneProcess, Events_AreFoundByClassInfo)
{
    expectEventsWithout({L"classinfo2", L"typeinfo"});
}

TEST_F(SoftphoneProcess, Events_AreFoundByTypeInfo)
{
    expectEventsWithout({L"classinfo2", L"classinfo"});
}

TEST_F(SoftphoneProcess, Events_AreFoundByTheRegisteredLibraryAlone)
{
    expectEventsWithout({L"all"});
    EXPECT_THROW(Subscription(history(), L"", {}), AutomationError);
}

TEST_F(SoftphoneProcess, Clients_ShareOneApplication)
{
    const Object first = application();
    const Object second = application();
    first.put(14, true);
    EXPECT_TRUE(second.get(14).isTrue());
    EXPECT_EQ(ask(L"attached"), L"True");
}

TEST_F(SoftphoneProcess, Call_ReachesTheClientWithItsFields)
{
    std::wstring call;
    const Subscription subscription(application().get(10).object(), progId,
                                    {{L"OnLineNewCall", [&](EventArguments arguments) {
                                          const Object given = arguments.at(0).object();
                                          call = given.get(L"Number").text() + L"|" + given.get(L"LastName").text() +
                                                 L"|" + (given.get(L"Incoming").isTrue() ? L"in" : L"out") + L"|" +
                                                 given.get(L"DestinationNumber").text();
                                      }}});
    EXPECT_EQ(ask(L"subscribers"), L"Application 0\nLine 1\nHistory 0\nAddressBook 0");
    ask(L"call number=0123 last=\"\x00C9mile \\\"X\\\"\" incoming=true destination=99");
    EXPECT_TRUE(eventually([&] { return !call.empty(); }));
    EXPECT_EQ(call, L"0123|\x00C9mile \"X\"|in|99");
}

TEST_F(SoftphoneProcess, ClosedWindow_QuitsTheSoftphone)
{
    int quits = 0;
    const Object held = application();
    const Subscription subscription(held, progId, {{L"OnQuit", [&](EventArguments) { ++quits; }}});
    const HWND window = FindWindowW(nullptr, L"Pavex");
    ASSERT_NE(window, nullptr);
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(softphone.process().exitCode(), 0u);
    EXPECT_EQ(quits, 1);
    EXPECT_THROW(held.get(14), AutomationError);
}

TEST_F(SoftphoneProcess, QuitCommand_DoesTheSame_AndTheSoftphoneCanBeStartedAgain)
{
    int quits = 0;
    EXPECT_EQ(ask(L"entry add id=7.8 last=Blanc"), L"7.8");
    {
        const Subscription subscription(application(), progId, {{L"OnQuit", [&](EventArguments) { ++quits; }}});
        EXPECT_EQ(ask(L"quit"), L"ok");
        EXPECT_EQ(softphone.process().exitCode(), 0u);
    }
    EXPECT_EQ(quits, 1);
    EXPECT_NE(support::readFile(softphone.storeFile()).find("[entry]\nId=7.8\nNumber=\nLastName=Blanc\n"),
              std::string::npos);
    softphone.start();
    EXPECT_EQ(application().get(12).object().get(4, {7L, 8L}).object().get(L"LastName").text(), L"Blanc");
}

TEST_F(SoftphoneProcess, DeadSubscriber_IsDropped)
{
    const Subscriber subscriber(L"0");
    EXPECT_NE(ask(L"subscribers").find(L"Line 1"), std::wstring::npos);
    subscriber.kill();
    ask(L"call number=1");
    EXPECT_TRUE(eventually([] { return ask(L"pending") == L"0"; }));
    EXPECT_NE(ask(L"subscribers").find(L"Line 0"), std::wstring::npos);
    EXPECT_TRUE(ask(L"ping").starts_with(L"pavex "));
}

TEST_F(SoftphoneProcess, SlowSubscriber_KeepsNeitherAnswersNorOtherClientsWaiting)
{
    const Subscriber subscriber(L"60000");
    EXPECT_EQ(ask(L"call number=1"), L"ok");
    EXPECT_EQ(ask(L"history add last=Weber"), L"1.1");
    EXPECT_EQ(history().get(1).int32(), 1);
    EXPECT_EQ(ask(L"pending"), L"2");
    subscriber.kill();
    EXPECT_TRUE(eventually([] { return ask(L"pending") == L"0"; }));
}

TEST_F(SoftphoneProcess, HangingSubscriber_DoesNotHoldTheEndForEver)
{
    const Subscriber subscriber(L"60000");
    EXPECT_EQ(ask(L"call number=1"), L"ok");
    EXPECT_TRUE(eventually([] { return ask(L"pending") == L"1"; }));
    EXPECT_EQ(ask(L"quit"), L"ok");
    EXPECT_EQ(softphone.process().exitCode(20'000), 1u);
    softphone.start();
    EXPECT_EQ(history().get(1).int32(), 0);
}

TEST_F(SoftphoneProcess, PlannedDeath_HappensInTheCall_AndLeavesTheClassUsable)
{
    const Object held = history();
    EXPECT_EQ(ask(L"fault on History.Count die"), L"ok");
    EXPECT_THROW(held.get(1), AutomationError);
    EXPECT_EQ(softphone.process().exitCode(), 1u);
    EXPECT_THROW(held.get(1), AutomationError);
    softphone.start();
    EXPECT_EQ(history().get(1).int32(), 0);
}
