#include "outlook/absence.h"

#include "outlook/contact_lookup.h"
#include "outlook_test.h"

#include <random>

namespace {

using desk::outlook::Version;

class Absence : public OutlookTest {
protected:
    void openAs(Version version, const std::wstring& records)
    {
        session.bOutlookInit = false;
        outlook.setVersion(version);
        open(records);
        outlook.setVersion(version);
    }

    // Everything that a walk can bring about, as one text.
    std::wstring walkAs(Version version, const std::wstring& records, const std::wstring& number)
    {
        openAs(version, records);
        automation::Object contact;
        const bool found = WalkOutlookContacts(session, number, L"", L"", L"", contact);
        std::wstring result = found ? L"found " + contact.get(L"EntryID").text() : L"not found";
        for (std::size_t index = 0; index < count(L"contact"); ++index)
            for (const wchar_t* name : {L"BusinessTelephoneNumber", L"CarTelephoneNumber", L"PrimaryTelephoneNumber"})
                result += L"|" + field(L"contact", index, name);
        return result;
    }
};

std::wstring people(int number)
{
    std::wstring records;
    for (int n = 0; n < number; ++n) records += L"[contact]\nLastName=P\nHomeTelephoneNumber=5 5." + std::to_wstring(n) + L"\n";
    return records;
}

// A folder of a few items: contacts with numbers in all layouts, without any,
// with very long ones, and distribution lists.
std::wstring oddFolder(std::mt19937& random)
{
    static const wchar_t* const numbers[] = {L"", L"12", L"1.2", L" 1 2", L"1-2", L"..", L"21", L"+12", L"1 2."};
    static const wchar_t* const fields[] = {L"BusinessTelephoneNumber", L"CarTelephoneNumber", L"PrimaryTelephoneNumber"};
    std::wstring records;
    for (unsigned items = random() % 7; items > 0; --items) {
        if (random() % 8 == 0) {
            records += L"[distlist]\nDLName=Everybody\n";
            continue;
        }
        records += L"[contact]\nLastName=P\n";
        for (const wchar_t* name : fields)
            if (random() % 3 == 0) records += std::wstring(name) + L"=" + numbers[random() % 9] + L"\n";
        if (random() % 20 == 0) records += L"HomeTelephoneNumber=" + std::wstring(random() % 2 ? 125 + random() % 4 : 253 + random() % 5, L'1') + L"\n";
    }
    return records;
}

}

TEST_F(Absence, ThousandsOfOddFolders_WithAndWithoutTables_GiveTheSame)
{
    std::mt19937 random(20230315);
    static const std::wstring sought[] = {L"12", L"1.2", L"", L"1-2", L"99", std::wstring(126, L'1'), std::wstring(256, L'1')};
    int found = 0;
    for (int folder = 0; folder < 3000; ++folder) {
        const std::wstring records = oddFolder(random);
        const std::wstring& number = sought[random() % 7];
        const std::wstring walked = walkAs(Version::v2003, records, number);
        ASSERT_EQ(walkAs(Version::v2016, records, number), walked) << desk::utf8(records);
        ASSERT_EQ(walkAs(Version::v2007, records, number), walked) << desk::utf8(records);
        found += walked.starts_with(L"found");
    }
    EXPECT_GT(found, 300) << "the folders must not all be without a hit";
    EXPECT_LT(found, 2700);
}

TEST_F(Absence, NobodyHasTheNumber_NoContactIsTouched)
{
    openAs(Version::v2016, people(1200));
    EXPECT_TRUE(absenceIsProved(session, L"999"));
    automation::Object contact;
    EXPECT_FALSE(WalkOutlookContacts(session, L"999", L"", L"", L"", contact));
    EXPECT_EQ(calls(L"Items.GetFirst method"), 0u);
    EXPECT_EQ(calls(L"Table.GetArray method"), 6u) << "three blocks each time";
}

TEST_F(Absence, SomebodyMayHaveTheNumber_TheWalkRuns)
{
    openAs(Version::v2016, people(10));
    EXPECT_FALSE(absenceIsProved(session, L"557"));
    automation::Object contact;
    EXPECT_TRUE(WalkOutlookContacts(session, L"557", L"", L"", L"", contact));
}

TEST_F(Absence, OlderOutlook_ProvesNothing)
{
    openAs(Version::v2003, people(3));
    EXPECT_FALSE(absenceIsProved(session, L"999"));
}

TEST_F(Absence, RefusedColumnOrFailingBlock_ProvesNothing)
{
    for (const wchar_t* fault : {L"on Columns.Add at 5 fail 0x80070057", L"on Table.GetArray at 2 fail 0x80004005",
                                 L"on Table.GetRowCount fail 0x80004005", L"on Columns.RemoveAll fail 0x80004005"}) {
        openAs(Version::v2016, people(1200));
        recorder.faults.add(fault);
        EXPECT_FALSE(absenceIsProved(session, L"999")) << desk::utf8(fault);
        recorder.faults.clear();
    }
}

TEST_F(Absence, TextThatMayHaveBeenCut_ProvesNothing)
{
    openAs(Version::v2016, L"[contact]\nHomeTelephoneNumber=" + std::wstring(127, L'1') + L"\n");
    EXPECT_FALSE(absenceIsProved(session, L"999"));
    openAs(Version::v2016, L"[contact]\nHomeTelephoneNumber=" + std::wstring(126, L'1') + L"\n");
    EXPECT_TRUE(absenceIsProved(session, L"999"));
}

TEST_F(Absence, EmptyFolder_IsProved)
{
    openAs(Version::v2007, L"");
    EXPECT_TRUE(absenceIsProved(session, L"999"));
}
