// Every call to a partner fails once, in turn: the procedure ends quietly, and
// the next call on the line is served as if nothing had been.
#include "link_test.h"

namespace {

constexpr const wchar_t* people =
    L"[contact]\nFirstName=Marc\nLastName=Durand\nMobileTelephoneNumber=01.23\n"
    L"[contact]\nFirstName=Claire\nLastName=Petit\nBusinessTelephoneNumber=4711\nEmail1Address=claire@example.com\n";

class FailingPartner : public LinkTest {
protected:
    FailingPartner()
    {
        host.settings.bgWithPopUp = true;
        host.settings.bgWithCallBackMail = true;
        host.settings.bgSetNewContact = true;
        host.settings.szFileConnectorIni =
            folder.write(L"settings.ini", "[outlook]\r\nCallBackMailSyntaxe=<LastName> <PhoneNumber>\r\n");
    }

    // A forwarded call from a number in another layout: filter, walk, rewriting,
    // mail, contact. Outlook's records are as at the start before each.
    void ringForwarded()
    {
        outlook.command(L"close-windows", L"");
        outlook.load(desk::parseStore(people));
        link.InitConnector(true);
        ring({{L"0123", L"", L""}, true, L"4711"});
    }

    // Rings once for every call that ringing takes, with `fault` at that call.
    int sweep(desk::Recorder& recorder, const std::wstring& fault)
    {
        recorder.clear();
        ringForwarded();
        const int calls = static_cast<int>(recorder.calls().size());
        for (int call = 1; call <= calls; ++call) {
            recorder.clear();
            recorder.faults.add(L"at " + std::to_wstring(call) + L" " + fault);
            ringForwarded();
            recorder.clear();
            if (!session.bOutlookInit) link.InitConnector(true);
            ringForwarded();
            EXPECT_EQ(windows(), L"Durand 0123 - Message\nMarc Durand - Contact") << "after call " << call;
        }
        outlook.command(L"close-windows", L"");
        return calls;
    }
};

}

TEST_F(FailingPartner, OutlookFailsAtEveryCallInTurn)
{
    start(people);
    EXPECT_GT(sweep(outlookCalls, L"fail 0x80004005"), 50);
}

TEST_F(FailingPartner, OutlookRaisesAnExceptionAtEveryCallInTurn)
{
    start(people);
    EXPECT_GT(sweep(outlookCalls, L"raise 0x80004004 Microsoft Outlook|refused"), 50);
}

TEST_F(FailingPartner, SoftphoneFailsAtEveryCallInTurn)
{
    start(people);
    EXPECT_GE(sweep(softphoneCalls, L"fail 0x80020003"), 3);
}

TEST_F(FailingPartner, OutlookIsBusyAtEveryCallInTurn_AndNothingIsLost)
{
    start(people);
    outlookCalls.clear();
    ringForwarded();
    const int calls = static_cast<int>(outlookCalls.calls().size());
    for (int call = 1; call <= calls; ++call) {
        outlookCalls.clear();
        outlookCalls.faults.add(L"at " + std::to_wstring(call) + L" busy 2");
        ringForwarded();
        EXPECT_EQ(windows(), L"Durand 0123 - Message\nMarc Durand - Contact") << "busy at call " << call;
    }
    outlook.command(L"close-windows", L"");
}
