// The window's messages, and work done from the message loop.
#include "form_test.h"

#include "automation/error.h"
#include "automation/outgoing_call.h"

using shell_tests::iniText;

namespace {

class Window : public shell_tests::FormTest {
protected:
    Window()
    {
        writeIni(iniText("trace=true\r\n"));
        load();
        boxes.clear();
    }

    void defer(char letter) { form().defer([this, letter] { order += letter; }); }

    // Runs the message loop until `done`.
    template <class Condition>
    static void pumpUntil(Condition done)
    {
        MSG message;
        while (!done() && GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    }

    std::string order;
};

}

TEST_F(Window, Close_AsksForAStop_AndTheWindowStays)
{
    SendMessageW(form().hWnd(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(configuration().gStop);
    EXPECT_TRUE(wasShown(L"Stop Connector"));
    EXPECT_TRUE(IsWindow(form().hWnd()));
    EXPECT_EQ(ended, 0);
}

TEST_F(Window, EndOfTheUsersSession_AsksForAStop)
{
    EXPECT_TRUE(SendMessageW(form().hWnd(), WM_QUERYENDSESSION, 0, 0)) << "it hinders nobody";
    EXPECT_FALSE(configuration().gStop);
    SendMessageW(form().hWnd(), WM_ENDSESSION, TRUE, 0);
    EXPECT_TRUE(configuration().gStop);
}

TEST_F(Window, EndOfTheSessionThatWasCalledOff_StopsNothing)
{
    SendMessageW(form().hWnd(), WM_ENDSESSION, FALSE, 0);
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

TEST_F(Window, CloseInsideAnOutgoingCall_WaitsForItsEnd_AndHoldsNoEventUp)
{
    onBox = [this](const std::wstring&) {
        pumpUntil([this] { return !order.empty(); }); // as the box's own message loop does
        order += '.';
        return IDOK;
    };
    {
        const automation::OutgoingCall call;
        SendMessageW(form().hWnd(), WM_CLOSE, 0, 0);
        defer('a');
        pump();
        EXPECT_FALSE(configuration().gStop);
    }
    pumpUntil([this] { return order.size() == 2; });
    EXPECT_EQ(order, "a.");
    EXPECT_TRUE(configuration().gStop);
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
    EXPECT_EQ(SendMessageW(form().hWnd(), WM_GETTEXTLENGTH, 0, 0), 7);
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
