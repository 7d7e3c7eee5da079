// A call that is out for long: what the form does inside it.
#include "form_fixture.h"

#include "automation/message_filter.h"
#include "automation/outgoing_call.h"
#include "support/process.h"

#include <utility>

namespace hublink {

using shell_tests::iniText;
using shell_tests::question;

namespace {

constexpr DISPID quit = 1;
constexpr DWORD maxWait = 20'000; // milliseconds

class LongCall : public shell_tests::FormFixture {
protected:
    LongCall()
    {
        callTimes = {50, 5};
        writeIni(iniText("trace=true\r\n"));
        load();
        boxes.clear();
        onBox = [this](const std::wstring& text) {
            insideCall.push_back(automation::OutgoingCall::inProgress());
            return text == question ? answer : IDOK;
        };
    }

    // As a call in the single-threaded apartment waits for its answer: messages that
    // are sent come in, posted ones and timers do not.
    template <class Condition>
    static void callUntil(Condition over)
    {
        const automation::OutgoingCall call;
        for (const DWORD start = GetTickCount(); !over() && GetTickCount() - start < maxWait;) {
            MSG ignored;
            PeekMessageW(&ignored, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
            Sleep(5);
        }
    }

    template <class Condition>
    static void pumpUntil(Condition done)
    {
        EXPECT_TRUE(support::eventually(done));
    }

    void postPress() { PostMessageW(form().window().handle(), WM_MOUSEMOVE, 1, WM_RBUTTONDOWN); }

    bool quitWasCalled() const { return !outlook.invocations.empty() && outlook.invocations[0].id == quit; }

    int answer = IDNO;
    std::vector<bool> insideCall; // of each box
};

}

TEST_F(LongCall, PressThatWaits_OpensTheQuestionInsideTheCall)
{
    callUntil([&, pressed = false]() mutable {
        if (!std::exchange(pressed, true)) postPress();
        return !boxes.empty();
    });
    EXPECT_EQ(insideCall, std::vector{true});
    pump();
    EXPECT_EQ(boxTexts(), std::vector<std::wstring>{question});
    EXPECT_FALSE(configuration().gStop);
}

TEST_F(LongCall, PressThatWasHeldBackWhenTheCallWasShort_OpensTheQuestionInsideTheCall)
{
    callUntil([&, pressed = false]() mutable {
        if (!std::exchange(pressed, true)) SendMessageW(form().window().handle(), WM_MOUSEMOVE, 1, WM_RBUTTONDOWN);
        return !boxes.empty();
    });
    EXPECT_EQ(insideCall, std::vector{true});
    pump();
    EXPECT_EQ(boxes.size(), 1u) << "what was held back was asked already";
}

TEST_F(LongCall, AnswerYes_AsksForTheStopAtOnce_AndQuitsAndLogsAfterTheCall)
{
    openOutlook();
    form().outlook().bQuitOutlook = true;
    answer = IDYES;
    callUntil([&, pressed = false]() mutable {
        if (!std::exchange(pressed, true)) postPress();
        return configuration().gStop;
    });
    EXPECT_EQ(boxTexts(), std::vector<std::wstring>{question});
    EXPECT_TRUE(outlook.invocations.empty()) << "a call inside the one that hangs would hang too";
    pumpUntil([&] { return boxes.size() == 2; });
    EXPECT_EQ(boxes[1].text, L"Stop Connector");
    EXPECT_EQ(insideCall, (std::vector{true, false}));
    EXPECT_TRUE(quitWasCalled());
}

TEST_F(LongCall, PostedClose_AsksForTheStopAtOnce_AndLogsAfterTheCall)
{
    callUntil([&, posted = false]() mutable {
        if (!std::exchange(posted, true)) PostMessageW(form().window().handle(), WM_CLOSE, 0, 0);
        return configuration().gStop;
    });
    EXPECT_TRUE(boxes.empty());
    pumpUntil([&] { return boxes.size() == 1; });
    EXPECT_EQ(boxes[0].text, L"Stop Connector");
    EXPECT_EQ(insideCall, std::vector{false});
}

TEST_F(LongCall, KillInTheIniFile_AsksForTheStop_AndIsSetBack)
{
    writeIni(iniText("trace=true\r\nkill=true\r\n"));
    touchIni();
    callUntil([&] { return configuration().gStop; });
    EXPECT_EQ(iniValue("Application", "kill"), L"false");
    EXPECT_TRUE(boxes.empty());
    pumpUntil([&] { return boxes.size() == 1; });
    EXPECT_EQ(boxes[0].text, L"Stop Connector");
}

TEST_F(LongCall, EventsAndTicks_WaitAllTheSame)
{
    bool eventCame = false;
    form().defer([&] { eventCame = true; });
    PostMessageW(form().window().handle(), WM_TIMER, FormWindow::supervisionTimer, 0);
    callUntil([&, pressed = false]() mutable {
        if (!std::exchange(pressed, true)) postPress();
        return !boxes.empty();
    });
    EXPECT_FALSE(eventCame);
    EXPECT_FALSE(configuration().gStop) << "the tick would miss the softphone";
    pump();
    EXPECT_TRUE(eventCame);
}

TEST_F(LongCall, ThatGoesOnAfterTheStopWasAsked_IsEndedWithTheIconTakenAway)
{
    callUntil([&, asked = false]() mutable {
        if (!std::exchange(asked, true)) {
            EXPECT_TRUE(iconIsShown());
            SendMessageW(form().window().handle(), WM_CLOSE, 0, 0);
        }
        return ended > 0;
    });
    EXPECT_EQ(ended, 1);
    EXPECT_FALSE(iconIsShown());
    EXPECT_TRUE(boxes.empty());
}

TEST_F(LongCall, OfAMapServerThatDoesNotStop_IsEndedToo)
{
    form().softphone().hashID = automation::Object(&map);
    int endedInside = 0;
    map.onCall = [&](const support::RawPartner::Call&) {
        callUntil([&] { return ended > 0; });
        endedInside = ended;
        return S_OK;
    };
    form().StopConnector();
    tick();
    EXPECT_EQ(endedInside, 1);
}

TEST_F(LongCall, WithoutAWishToStop_GoesOn)
{
    // Each look at the long call takes the icon's messages: a message that has gone is a look.
    int looks = 0;
    callUntil([&] {
        MSG waiting;
        const HWND window = form().window().handle();
        if (PeekMessageW(&waiting, window, WM_MOUSEMOVE, WM_MOUSEMOVE, PM_NOREMOVE)) return false;
        PostMessageW(window, WM_MOUSEMOVE, 1, WM_MOUSEMOVE);
        return ++looks > 3;
    });
    EXPECT_GT(looks, 3);
    EXPECT_EQ(ended, 0);
    EXPECT_TRUE(boxes.empty());
    EXPECT_TRUE(iconIsShown());
}

// COM asks the filter inside its wait, where it would hand nothing over itself.
TEST_F(LongCall, MessageFilter_HandsThePressOver_AndLeavesTheRestWaiting)
{
    const automation::BusyMessageFilter filter([&] { form().window().dispatchStopMessages(); });
    automation::ComPtr<IMessageFilter> registered;
    CoRegisterMessageFilter(nullptr, registered.receive());
    CoRegisterMessageFilter(registered.get(), nullptr);
    bool eventCame = false;
    {
        const automation::OutgoingCall call;
        form().defer([&] { eventCame = true; });
        postPress();
        for (const DWORD start = GetTickCount(); boxes.empty() && GetTickCount() - start < maxWait;) {
            EXPECT_EQ(registered->MessagePending(nullptr, 0, PENDINGTYPE_TOPLEVEL), DWORD{PENDINGMSG_WAITNOPROCESS});
            Sleep(5);
        }
    }
    EXPECT_EQ(insideCall, std::vector{true});
    EXPECT_FALSE(eventCame);
    pump();
    EXPECT_TRUE(eventCame);
    EXPECT_EQ(boxes.size(), 1u);
}

}
