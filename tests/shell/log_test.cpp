// The one logging entry.
#include "form_fixture.h"

namespace hublink {

using shell_tests::iniText;

namespace {

class Log : public shell_tests::FormFixture {
protected:
    void start(bool trace)
    {
        writeIni(iniText(trace ? "trace=true\r\n" : ""));
        load();
        boxes.clear();
    }
};

}

TEST_F(Log, NobodyConnectedAndTraceOff_DropsTheLine)
{
    start(false);
    form().outlook().OutlookApp = automation::Object(&outlook);
    form().WriteLog(L"a line");
    EXPECT_TRUE(boxes.empty());
    EXPECT_TRUE(outlook.invocations.empty());
}

TEST_F(Log, TraceOn_ShowsTheLineWithAnOkButton)
{
    start(true);
    form().WriteLog(L"a line");
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].text, L"a line");
    EXPECT_EQ(boxes[0].flags, UINT{MB_OK});
}

TEST_F(Log, OpenOutlookSession_GetsTheLine_WithTraceOffToo)
{
    start(false);
    openOutlook();
    form().WriteLog(L"a line");
    ASSERT_EQ(outlook.invocations.size(), 1u);
    EXPECT_EQ(outlook.invocations[0].id, 2);
    EXPECT_FALSE(logItem.invocations.empty());
    EXPECT_TRUE(boxes.empty());
}

TEST_F(Log, Outlook_GetsTheLineBeforeTheUser)
{
    start(true);
    openOutlook();
    onBox = [&](const std::wstring&) {
        EXPECT_FALSE(logItem.invocations.empty());
        return IDOK;
    };
    form().WriteLog(L"a line");
    EXPECT_EQ(boxes.size(), 1u);
}

TEST_F(Log, FailingOutlook_IsSwallowed)
{
    start(true);
    openOutlook();
    outlook.onCall = [](const support::RawPartner::Call&) { return E_FAIL; };
    EXPECT_NO_THROW(form().WriteLog(L"a line"));
    EXPECT_EQ(outlook.invocations.size(), 1u);
}

TEST_F(Log, FailingMessageBox_IsSwallowed)
{
    start(true);
    onBox = [](const std::wstring&) -> int { throw std::bad_alloc(); };
    EXPECT_NO_THROW(form().WriteLog(L"a line"));
    EXPECT_EQ(boxes.size(), 1u);
}

TEST_F(Log, LineWrittenWhileABoxIsOpen_IsShownToo)
{
    start(true);
    onBox = [&](const std::wstring& text) {
        if (text == L"outer") form().WriteLog(L"inner");
        return IDOK;
    };
    form().WriteLog(L"outer");
    EXPECT_EQ(boxTexts(), (std::vector<std::wstring>{L"outer", L"inner"}));
}

TEST_F(Log, BeforeTheStart_IsDroppedToo)
{
    form().WriteLog(L"a line");
    EXPECT_TRUE(boxes.empty());
}

TEST_F(Log, NegativePause_IsNoPause)
{
    struct Pauses {
        static DWORD WINAPI of(void* form)
        {
            for (const std::int32_t pause : {-1, 0, INT32_MIN}) static_cast<Hublink*>(form)->pause(pause);
            return 0;
        }
    };
    start(false);
    const HANDLE thread = CreateThread(nullptr, 0, Pauses::of, &form(), 0, nullptr);
    EXPECT_EQ(WaitForSingleObject(thread, 60'000), WAIT_OBJECT_0) << "taken for days";
    CloseHandle(thread);
}

}
