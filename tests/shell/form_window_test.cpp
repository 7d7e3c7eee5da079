// The window's messages, and work done from the message loop.
#include "form_fixture.h"

#include "automation/error.h"
#include "automation/outgoing_call.h"

namespace hublink {

using shell_tests::iniText;
using shell_tests::question;

namespace {

// Whether COM would refuse a call here.
bool aSenderWaits()
{
    return (InSendMessageEx(nullptr) & (ISMEX_SEND | ISMEX_REPLIED)) == ISMEX_SEND;
}

class Window : public shell_tests::FormFixture {
protected:
    Window()
    {
        writeIni(iniText("trace=true\r\n"));
        load();
        boxes.clear();
    }

    void defer(char letter)
    {
        form().defer([this, letter] { order += letter; });
    }

    // Quitting it tells whether a sender waited meanwhile.
    void openOutlookToBeQuit()
    {
        openOutlook();
        form().outlook().bQuitOutlook = true;
        outlook.onCall = [this](const support::RawPartner::Call&) {
            senderWaited = aSenderWaits();
            return S_OK;
        };
    }

    bool senderWaited = true;

    // Runs the message loop until `done`.
    template <class Condition>
    static void pumpUntil(Condition done)
    {
        MSG message;
        while (!done() && GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    }

    // Sends a message as another process does: the sender waits for the answer.
    void sendFromAnotherThread(UINT message, WPARAM wParam, LPARAM lParam = 0)
    {
        struct Sender {
            static DWORD WINAPI send(void* parameters)
            {
                const Sender& given = *static_cast<Sender*>(parameters);
                SendMessageW(given.window, given.message, given.wParam, given.lParam);
                return 0;
            }
            HWND window;
            UINT message;
            WPARAM wParam;
            LPARAM lParam;
        } sender{form().window().handle(), message, wParam, lParam};
        const HANDLE thread = CreateThread(nullptr, 0, Sender::send, &sender, 0, nullptr);
        while (MsgWaitForMultipleObjects(1, &thread, FALSE, INFINITE, QS_SENDMESSAGE) != WAIT_OBJECT_0) {
            MSG ignored;
            PeekMessageW(&ignored, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
        }
        CloseHandle(thread);
    }

    std::string order;
};

// The last reference to an object of another process goes out, and messages come in meanwhile.
class Proxy final : public support::RawPartner {
public:
    STDMETHODIMP_(ULONG) Release() override
    {
        if (onRelease) onRelease();
        return RawPartner::Release();
    }

    std::function<void()> onRelease;
};

}

TEST_F(Window, Close_AsksForAStop_AndTheWindowStays)
{
    SendMessageW(form().window().handle(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(configuration().gStop);
    EXPECT_TRUE(wasShown(L"Stop Connector"));
    EXPECT_TRUE(IsWindow(form().window().handle()));
    EXPECT_EQ(ended, 0);
}

TEST_F(Window, EndOfTheUsersSession_AsksForAStop)
{
    EXPECT_TRUE(SendMessageW(form().window().handle(), WM_QUERYENDSESSION, 0, 0)) << "it hinders nobody";
    EXPECT_FALSE(configuration().gStop);
    SendMessageW(form().window().handle(), WM_ENDSESSION, TRUE, 0);
    EXPECT_TRUE(configuration().gStop);
}

TEST_F(Window, EndOfTheSession_ShowsNoBox_NeitherThenNorLater)
{
    form().softphone().hashID = automation::Object(&map);
    SendMessageW(form().window().handle(), WM_ENDSESSION, TRUE, 0);
    SendMessageW(form().window().handle(), WM_MOUSEMOVE, 1, WM_RBUTTONDOWN);
    form().WriteLog(L"a line");
    form().showMessage(L"a message");
    tick();
    EXPECT_TRUE(boxes.empty());
    EXPECT_EQ(ended, 1);
}

TEST_F(Window, EndOfTheSessionInsideAnOutgoingCall_DoesNotWaitForIt)
{
    openOutlook();
    form().outlook().bQuitOutlook = true;
    const automation::OutgoingCall call;
    SendMessageW(form().window().handle(), WM_ENDSESSION, TRUE, 0);
    EXPECT_TRUE(configuration().gStop);
    ASSERT_EQ(outlook.invocations.size(), 1u);
    EXPECT_EQ(outlook.invocations[0].id, 1) << "quit";
}

TEST_F(Window, CloseInsideACall_IsCarriedOutWhole_BeforeTheTickThatEndsTheProgram)
{
    form().softphone().hashID = automation::Object(&map);
    {
        const automation::OutgoingCall call;
        SendMessageW(form().window().handle(), WM_CLOSE, 0, 0);
    }
    tick();
    EXPECT_EQ(boxTexts(), (std::vector<std::wstring>{L"Stop Connector", L"The End !!!"}));
    EXPECT_EQ(ended, 1);
}

TEST_F(Window, PressAndCloseInsideACall_ATickDuringTheQuestion_CarriesTheCloseOut)
{
    form().softphone().hashID = automation::Object(&map);
    onBox = [&](const std::wstring& text) {
        if (text == question) tick();
        return IDNO;
    };
    {
        const automation::OutgoingCall call;
        SendMessageW(form().window().handle(), WM_MOUSEMOVE, 1, WM_RBUTTONDOWN);
        SendMessageW(form().window().handle(), WM_CLOSE, 0, 0);
    }
    pumpUntil([this] { return ended > 0; });
    EXPECT_EQ(boxTexts(), (std::vector<std::wstring>{question, L"Stop Connector", L"The End !!!"}));
}

// COM refuses calls inside a message whose sender waits.
TEST_F(Window, CloseThatIsSent_QuitsOutlookAfterItsSenderIsFree)
{
    openOutlookToBeQuit();
    sendFromAnotherThread(WM_CLOSE, 0);
    EXPECT_TRUE(configuration().gStop);
    EXPECT_TRUE(outlook.invocations.empty());
    pumpUntil([this] { return boxes.size() == 1; });
    EXPECT_EQ(outlook.invocations.size(), 1u);
    EXPECT_FALSE(senderWaited);
    EXPECT_EQ(boxes[0].text, L"Stop Connector");
}

TEST_F(Window, EndOfTheSessionThatIsSent_QuitsOutlookWithItsSenderFree)
{
    openOutlookToBeQuit();
    sendFromAnotherThread(WM_ENDSESSION, TRUE);
    EXPECT_TRUE(configuration().gStop);
    pumpUntil([this] { return !outlook.invocations.empty(); });
    EXPECT_FALSE(senderWaited);
    EXPECT_TRUE(boxes.empty());
}

// A question that opened inside would keep COM refusing calls until its answer.
TEST_F(Window, PressThatIsSent_OpensItsQuestionAfterItsSenderIsFree)
{
    bool senderWaits = true;
    onBox = [&](const std::wstring&) {
        senderWaits = aSenderWaits();
        return IDNO;
    };
    sendFromAnotherThread(WM_MOUSEMOVE, 1, WM_RBUTTONDOWN);
    EXPECT_TRUE(boxes.empty());
    pumpUntil([this] { return boxes.size() == 1; });
    EXPECT_FALSE(senderWaits);
}

// The notification area sends so: it does not wait for an answer.
TEST_F(Window, PressThatIsSentWithoutWaiting_OpensItsQuestionAfterItsMessage)
{
    struct Shell {
        static DWORD WINAPI press(void* window)
        {
            SendNotifyMessageW(static_cast<HWND>(window), WM_MOUSEMOVE, 1, WM_RBUTTONDOWN);
            return 0;
        }
    };
    DWORD how = ISMEX_NOTIFY;
    onBox = [&](const std::wstring&) {
        how = InSendMessageEx(nullptr);
        return IDNO;
    };
    CloseHandle(CreateThread(nullptr, 0, Shell::press, form().window().handle(), 0, nullptr));
    pumpUntil([this] { return boxes.size() == 1; });
    EXPECT_EQ(how, DWORD{ISMEX_NOSEND});
}

TEST_F(Window, MessagesThatComeInWhileAnObjectIsLetGo_WaitAsInACall)
{
    Proxy proxy;
    automation::Object session(&proxy);
    proxy.onRelease = [&] {
        defer('a');
        PostMessageW(form().window().handle(), WM_TIMER, FormWindow::supervisionTimer, 0);
        SendMessageW(form().window().handle(), WM_MOUSEMOVE, 1, WM_RBUTTONDOWN);
        pump();
        order += '.';
    };
    session = automation::Object();
    EXPECT_EQ(order, ".");
    EXPECT_TRUE(boxes.empty());
    EXPECT_FALSE(configuration().gStop) << "the tick would miss the softphone";
    pumpUntil([this] { return order.size() == 2; });
    EXPECT_EQ(order, ".a");
}

TEST_F(Window, EndOfTheSessionThatWasCalledOff_StopsNothing)
{
    SendMessageW(form().window().handle(), WM_ENDSESSION, FALSE, 0);
    EXPECT_FALSE(configuration().gStop);
}

TEST_F(Window, DeferredWork_WaitsForTheMessageLoop_AndKeepsItsOrder)
{
    defer('a');
    defer('b');
    defer('c');
    EXPECT_EQ(order, "");
    pump();
    EXPECT_EQ(order, "abc");
}

TEST_F(Window, WorkDeferredByWork_ComesAfterWhatWaitsAlready)
{
    form().defer([this] {
        order += 'a';
        defer('c');
    });
    defer('b');
    pump();
    EXPECT_EQ(order, "abc");
}

TEST_F(Window, WorkWhoseMessageBoxIsOpen_IsFinishedBeforeTheNext)
{
    onBox = [this](const std::wstring&) {
        defer('c');
        pump(); // as the box's own message loop does
        order += '.';
        return IDOK;
    };
    form().defer([this] {
        order += "a(";
        form().showMessage(L"open");
        order += ")";
    });
    defer('b');
    pump();
    EXPECT_EQ(order, "a(.)bc");
}

TEST_F(Window, WorkDeferredWhileAnotherProceduresBoxIsOpen_RunsInItsLoop)
{
    onBox = [this](const std::wstring&) {
        defer('a');
        pump();
        order += '.';
        return IDOK;
    };
    form().showMessage(L"open");
    EXPECT_EQ(order, "a.");
}

TEST_F(Window, DeferredWork_NeverRunsInsideAnOutgoingCall)
{
    {
        const automation::OutgoingCall call;
        defer('a');
        defer('b');
        pump();
        EXPECT_EQ(order, "");
    }
    pumpUntil([this] { return order.size() == 2; });
    EXPECT_EQ(order, "ab");
}

TEST_F(Window, CloseInsideAnOutgoingCall_AsksForTheStop_LogsAfterIt_AndHoldsNoEventUp)
{
    onBox = [this](const std::wstring&) {
        pumpUntil([this] { return !order.empty(); }); // as the box's own message loop does
        order += '.';
        return IDOK;
    };
    {
        const automation::OutgoingCall call;
        SendMessageW(form().window().handle(), WM_CLOSE, 0, 0);
        defer('a');
        pump();
        EXPECT_TRUE(configuration().gStop);
        EXPECT_TRUE(boxes.empty());
    }
    pumpUntil([this] { return order.size() == 2; });
    EXPECT_EQ(order, "a.");
    EXPECT_EQ(boxTexts(), std::vector<std::wstring>{L"Stop Connector"});
}

TEST_F(Window, WorkThatFails_DoesNotHinderTheNext)
{
    form().defer([] { throw automation::AutomationError(L"Number", E_FAIL); });
    defer('b');
    pump();
    EXPECT_EQ(order, "b");
    defer('c');
    pump();
    EXPECT_EQ(order, "bc");
}

TEST_F(Window, OtherMessages_AreTheSystems)
{
    EXPECT_EQ(SendMessageW(form().window().handle(), WM_GETTEXTLENGTH, 0, 0), 7);
}

TEST_F(Window, WorkThatStillWaits_EndsWithTheForm)
{
    int runs = 0;
    Hublink second(Desktop{programFolder, [](const std::wstring&, UINT) { return IDOK; }, [] {}});
    {
        Hublink shortLived(Desktop{programFolder, [](const std::wstring&, UINT) { return IDOK; }, [] {}});
        shortLived.defer([&] { ++runs; });
    }
    pump();
    EXPECT_EQ(runs, 0);
}

}
