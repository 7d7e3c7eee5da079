// Calls with numbers that no telephone has: nobody else is shown, nobody else is
// written to, and who calls twice has one contact.
#include "link_fixture.h"

#include "common/phone_number.h"
#include "support/strange_numbers.h"

namespace hublink {

namespace {

// Somebody for each way to be met by mistake: with a mail address, with blanks, without numbers, with signs.
constexpr const wchar_t* bystanders =
    L"[contact]\nFirstName=Marc\nLastName=Durand\nBusinessTelephoneNumber=0123\nEmail1Address=marc@example.com\n"
    L"[contact]\nFirstName=Claire\nLastName=Petit\nMobileTelephoneNumber=04 5.6\n"
    L"[contact]\nLastName=Mute\n"
    L"[contact]\nFirstName=Alice\nCompanyName=Pavex\nHomeTelephoneNumber=1=1\n";
constexpr std::size_t bystandersCount = 4;

class StrangeNumber : public LinkFixture {
protected:
    StrangeNumber()
    {
        host.settings.bgWithPopUp = true;
        host.settings.bgSetNewContact = true;
        host.settings.bgWithCallBackMail = true;
        start(bystanders);
    }

    ~StrangeNumber() override { outlook.command(L"close-windows", L""); }

    void beginAnew()
    {
        outlook.load(desk::parseStore(bystanders));
        outlookSession.OutlookLogItem = automation::Object(); // it is among what has gone
    }

    // The bystanders as they are saved.
    std::wstring bystandersNow()
    {
        std::vector<desk::StoreRecord> contacts;
        for (const desk::StoreRecord& record : outlook.records())
            if (record.kind == L"contact" && contacts.size() < bystandersCount) contacts.push_back(record);
        return desk::storeText(contacts);
    }

    void ringTwice(const std::wstring& number)
    {
        const std::wstring before = bystandersNow();
        for (int call = 0; call < 2; ++call) {
            ring({{number, L"Stranger", L"Sam"}, true, L""});
            EXPECT_EQ(windows(), L"Sam Stranger - Contact");
            EXPECT_EQ(count(L"contact"), bystandersCount + 1);
        }
        EXPECT_EQ(field(L"contact", bystandersCount, L"BusinessTelephoneNumber"), StripPhoneNumber(number));
        EXPECT_EQ(bystandersNow(), before);
    }
};

std::string beginningOf(const std::wstring& number)
{
    return desk::utf8(desk::escaped(number.substr(0, 40)));
}

}

TEST_F(StrangeNumber, CallingTwice_MakesOneContactOfItsOwn_AndTouchesNobodyElse)
{
    for (const std::wstring& number : support::strangeNumbers()) {
        SCOPED_TRACE(beginningOf(number));
        beginAnew();
        ringTwice(number);
    }
}

TEST_F(StrangeNumber, CallingTwiceInAnOutlookWithoutTables_GivesTheSame)
{
    for (const std::wstring& number : support::strangeNumbers()) {
        SCOPED_TRACE(beginningOf(number));
        beginAnew();
        outlook.setVersion(desk::outlook::Version::v2003);
        ringTwice(number);
    }
}

TEST_F(StrangeNumber, AsTheDestinationOfAForwardedCall_WritesToNobody)
{
    for (const std::wstring& number : support::strangeNumbers()) {
        SCOPED_TRACE(beginningOf(number));
        beginAnew();
        ring({{L"0123", L"", L""}, true, number});
        EXPECT_EQ(windows(), L"Marc Durand - Contact") << "the caller alone, and no mail";
    }
}

}
