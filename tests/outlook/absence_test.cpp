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

    unsigned long questions() { return outlook.guard().questions(); }

    // Whether a walk finds the number.
    bool walkFinds(const std::wstring& number)
    {
        automation::Object contact;
        return WalkOutlookContacts(session, number, L"", L"", L"", contact);
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

TEST_F(Absence, Version2007AndSeveralBlocks_IsProved_AndTheLastContactIsSeen)
{
    openAs(Version::v2007, people(1200));
    EXPECT_TRUE(absenceIsProved(session, L"999"));
    openAs(Version::v2007, people(1200) + L"[contact]\nLastName=Last\nCarTelephoneNumber=9 9.9\n");
    EXPECT_FALSE(absenceIsProved(session, L"999")) << "it stands in the third block";
    EXPECT_TRUE(walkFinds(L"999"));
}

TEST_F(Absence, CellsThatAreNullOrNotFound_AreWithoutANumber)
{
    for (const wchar_t* cell : {L"missingcell null", L"missingcell notfound", L"missingcell empty"}) {
        openAs(Version::v2016, people(3) + L"[distlist]\nDLName=Everybody\n");
        outlook.command(L"missingcell", std::wstring_view(cell).substr(12));
        EXPECT_TRUE(absenceIsProved(session, L"999")) << desk::utf8(cell);
        EXPECT_FALSE(absenceIsProved(session, L"")) << desk::utf8(cell) << ": most fields are empty";
    }
}

TEST_F(Absence, ContactThatComesBehindTheLastBlock_IsNotOverlooked)
{
    openAs(Version::v2016, people(600));
    outlook.command(L"coming", L"2 contact\nLastName=Late\nCarTelephoneNumber=9 9.9\n");
    EXPECT_TRUE(walkFinds(L"999")) << "the table has not ended: the walk runs";
}

TEST_F(Absence, ContactThatComesBetweenTheBlocks_IsNotOverlooked)
{
    openAs(Version::v2016, people(600));
    outlook.command(L"coming", L"1 contact\nLastName=Late\nCarTelephoneNumber=9 9.9\n");
    EXPECT_TRUE(walkFinds(L"999"));
}

TEST_F(Absence, ContactThatGoesMeanwhile_ProvesNothing_AndTheWalkFindsNobody)
{
    openAs(Version::v2016, people(600));
    recorder.faults.add(L"on Table.GetRowCount at 1 answer I4 601");
    EXPECT_FALSE(absenceIsProved(session, L"999")) << "as many rows as were counted are not there any more";
    EXPECT_FALSE(walkFinds(L"999"));
}

TEST_F(Absence, ProofOfAbsence_AsksOnceWhetherTheTableHasEnded)
{
    openAs(Version::v2016, people(1200));
    EXPECT_TRUE(absenceIsProved(session, L"999"));
    EXPECT_EQ(calls(L"Table.EndOfTable get"), 1u);
    EXPECT_FALSE(absenceIsProved(session, L"557"));
    EXPECT_EQ(calls(L"Table.EndOfTable get"), 1u) << "a possible hit is answer enough";
}

TEST_F(Absence, GuardRefusesAColumn_OneQuestion_AndTablesAreLeftAloneUntilTheNextInit)
{
    for (const wchar_t* refusal : {L"deny 0x80004004", L"deny 0x80040102"}) {
        openAs(Version::v2016, people(10));
        outlook.command(L"guard", refusal);
        const unsigned long before = questions();
        for (int call = 0; call < 5; ++call) EXPECT_TRUE(walkFinds(L"557"));
        EXPECT_FALSE(walkFinds(L"999"));
        EXPECT_EQ(questions() - before, 1u) << desk::utf8(refusal) << ": a walk asks nothing";
        EXPECT_EQ(calls(L"Folder.GetTable method"), 1u);
        outlook.command(L"guard", L"off");
        EXPECT_FALSE(walkFinds(L"999"));
        EXPECT_EQ(calls(L"Folder.GetTable method"), 1u) << "nobody has opened the session again";
        session.bOutlookInit = false;
        InitOutlook(session);
        EXPECT_TRUE(absenceIsProved(session, L"999"));
    }
}

TEST_F(Absence, UserIsAskedAboutAColumn_AndAllows_TablesAreLeftAloneAllTheSame)
{
    openAs(Version::v2016, people(10));
    outlook.command(L"guard", L"allow 1200");
    for (int call = 0; call < 3; ++call) EXPECT_TRUE(walkFinds(L"557"));
    EXPECT_EQ(questions(), 1u) << "each further column would have been asked about, too";
    EXPECT_EQ(calls(L"Folder.GetTable method"), 1u);
}

TEST_F(Absence, ColumnsAllowedWithoutAQuestion_AreTaken)
{
    openAs(Version::v2016, people(10));
    outlook.command(L"guard", L"allow");
    EXPECT_TRUE(absenceIsProved(session, L"999"));
    EXPECT_TRUE(absenceIsProved(session, L"999"));
}

TEST_F(Absence, OutlookWithoutTables_IsNoGuard)
{
    openAs(Version::v2003, people(3));
    EXPECT_FALSE(absenceIsProved(session, L"999"));
    outlook.setVersion(Version::v2016);
    EXPECT_TRUE(absenceIsProved(session, L"999"));
}
