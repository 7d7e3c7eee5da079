// Every call to a partner fails once, in turn: its procedure ends quietly, what
// does not depend on it is done all the same, and the next call on the line is
// served as if nothing had been.
#include "notes_link_fixture.h"

#include <algorithm>

namespace hublink {

namespace {

constexpr const wchar_t* people =
    L"[contact]\nFirstName=Marc\nLastName=Durand\nMobileTelephoneNumber=01.23\n"
    L"[contact]\nFirstName=Claire\nLastName=Petit\nBusinessTelephoneNumber=4711\nEmail1Address=claire@example.com\n";

constexpr const wchar_t* mail = L"Durand 0123 - Message";
constexpr const wchar_t* contact = L"Marc Durand - Contact";

// The part of a recorded call before its arguments.
std::wstring memberAndKind(const std::wstring& line)
{
    return line.substr(0, line.find(L" ("));
}

class FailingPartner : public NotesLinkFixture {
protected:
    FailingPartner()
    {
        host.settings.bgWithLotus = false;
        host.settings.bgWithPopUp = true;
        host.settings.bgWithCallBackMail = true;
        host.settings.bgSetNewContact = true;
        support::writeFile(ini, "[outlook]\r\nCallBackMailSyntaxe=<LastName> <PhoneNumber>\r\n"
                                "[lotus]\r\nNbPublicAddressBook=2\r\nOrder=Base 1,Base 2\r\n" +
                                    std::string(switches) + descriptions);
    }

    ~FailingPartner() override { outlook.command(L"close-windows", L""); }

    // A forwarded call from a number in another layout: filter, walk, rewriting,
    // mail, contact. Outlook is as at the start before each, a session that was
    // opened anew included: it may use tables that it was refused before.
    void ringForwarded(desk::Recorder& recorder, const std::wstring& fault = L"")
    {
        outlook.command(L"close-windows", L"");
        notes.ask(L"close-windows");
        outlook.load(desk::parseStore(people));
        outlookSession.bOutlookInit = false;
        InitOutlook(outlookSession);
        recorder.clear();
        if (!fault.empty()) recorder.faults.add(fault);
        ring({{L"0123", L"", L""}, true, L"4711"});
    }

    // The calls that ringing takes once all names have been looked up.
    Lines callsOfARing(desk::Recorder& recorder)
    {
        ringForwarded(recorder);
        ringForwarded(recorder);
        Lines calls;
        for (const desk::RecordedCall& call : recorder.calls()) calls.push_back(memberAndKind(call.text()));
        return calls;
    }

    // Rings with that fault at the call, and proves that it met that call.
    void ringWithFault(desk::Recorder& recorder, const Lines& calls, std::size_t index, const std::wstring& fault)
    {
        ringForwarded(recorder, L"at " + std::to_wstring(index + 1) + L" " + fault);
        ASSERT_GT(recorder.calls().size(), index);
        EXPECT_EQ(memberAndKind(recorder.calls()[index].text()), calls[index]);
    }

    void expectNextCallServed(desk::Recorder& recorder)
    {
        ringForwarded(recorder);
        EXPECT_EQ(windows(), std::wstring(mail) + L"\n" + contact);
    }

    bool isOpen(const std::wstring& ending)
    {
        const Lines titles = desk::linesOf(windows());
        return std::any_of(titles.begin(), titles.end(), [&](const auto& title) { return title.ends_with(ending); });
    }

    void sweepOutlook(const std::wstring& fault);
};

std::size_t placeOfNth(const Lines& calls, const std::wstring& call, int n)
{
    std::size_t place = 0;
    while (calls.at(place) != call || --n > 0) ++place;
    return place;
}

// The caller's contact is shown whatever has failed: when it cannot be, another
// one is made. The mail is prepared unless the failure lies between the look-up
// of its addressee (the third one, after both names) and its display.
void FailingPartner::sweepOutlook(const std::wstring& fault)
{
    start(people);
    const Lines calls = callsOfARing(outlookCalls);
    const std::size_t mailEnds = placeOfNth(calls, L"MailItem.Display method", 1);
    std::size_t mailBegins = placeOfNth(calls, L"Items.Find method", 3);
    while (calls.at(mailBegins) != L"Folder.Items get") --mailBegins;
    EXPECT_GT(calls.size(), 50u);
    for (std::size_t index = 0; index < calls.size(); ++index) {
        SCOPED_TRACE("call " + std::to_string(index) + ", " + desk::utf8(calls[index]));
        ringWithFault(outlookCalls, calls, index, fault);
        EXPECT_TRUE(isOpen(contact));
        EXPECT_TRUE(isOpen(L" - Message") || (index >= mailBegins && index <= mailEnds));
        EXPECT_LE(count(L"contact"), index > mailEnds ? 3u : 2u);
        EXPECT_TRUE(outlookSession.bOutlookInit);
        expectNextCallServed(outlookCalls);
    }
}

}

TEST_F(FailingPartner, OutlookFailsAtEveryCallInTurn_TheCallerIsShown_AndTheNextCallServed)
{
    sweepOutlook(L"fail 0x80004005");
}

TEST_F(FailingPartner, OutlookRaisesAnExceptionAtEveryCallInTurn_TheCallerIsShown_AndTheNextCallServed)
{
    sweepOutlook(L"raise 0x80004004 Microsoft Outlook|refused");
}

TEST_F(FailingPartner, SoftphoneFailsAtEveryCallInTurn_AndNothingIsDoneForThatCall)
{
    start(people);
    const Lines calls = callsOfARing(softphoneCalls);
    ASSERT_EQ(calls, (Lines{L"Call.Number get", L"Call.Incoming get", L"Call.DestinationNumber get"}));
    for (std::size_t index = 0; index < calls.size(); ++index) {
        SCOPED_TRACE(desk::utf8(calls[index]));
        ringWithFault(softphoneCalls, calls, index, L"fail 0x80004005");
        EXPECT_EQ(windows(), L"");
        expectNextCallServed(softphoneCalls);
    }
}

TEST_F(FailingPartner, OutlookIsBusyAtEveryCallInTurn_AndNothingIsLost)
{
    start(people);
    const Lines calls = callsOfARing(outlookCalls);
    for (std::size_t index = 0; index < calls.size(); ++index) {
        SCOPED_TRACE("call " + std::to_string(index) + ", " + desk::utf8(calls[index]));
        ringWithFault(outlookCalls, calls, index, L"busy 2");
        EXPECT_EQ(windows(), std::wstring(mail) + L"\n" + contact);
    }
}

TEST_F(FailingPartner, OutlookFailsAtEveryCallInTurn_NotesIsServedWhole)
{
    host.settings.bgWithLotus = true;
    start(people);
    const Lines calls = callsOfARing(outlookCalls); // of both
    const Lines documents = openNotes();
    ASSERT_EQ(documents.size(), 3u) << "message, calendar, caller";
    for (std::size_t index = 0; index < calls.size(); ++index) {
        if (calls[index].starts_with(L"Notes")) continue;
        SCOPED_TRACE("call " + std::to_string(index) + ", " + desk::utf8(calls[index]));
        ringWithFault(outlookCalls, calls, index, L"fail 0x80004005");
        EXPECT_EQ(openNotes(), documents);
    }
}

}
