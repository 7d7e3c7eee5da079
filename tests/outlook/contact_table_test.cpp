#include "contact_table_fixture.h"

#include "outlook/contacts.h"

namespace hublink {

namespace {

using desk::outlook::Version;
using ContactTable = ContactTableFixture;

}

TEST_F(ContactTable, NobodyHasTheNumber_NoContactIsTouched)
{
    openAs(Version::v2016, people(1200));
    EXPECT_TRUE(isProvedAbsent(L"999"));
    EXPECT_FALSE(WalkOutlookContacts(session, L"999"));
    EXPECT_EQ(calls(L"Items.GetFirst method"), 0u);
    EXPECT_EQ(calls(L"Table.GetArray method"), 6u) << "three blocks each time";
}

TEST_F(ContactTable, OneContactMayHaveTheNumber_ItIsTakenByItsIdentifier)
{
    openAs(Version::v2016, people(1100) + personWith(L"9.9 9") + people(50));
    session.bReplacePhoneNumber = true;
    EXPECT_EQ(findPossibleOwner(session, L"999").entryId, field(L"contact", 1100, L"EntryID"));
    forgetCalls();
    EXPECT_EQ(walkFindsWhom(L"999"), L"Wanted");
    EXPECT_TRUE(wasTakenByIdentifier());
    EXPECT_EQ(calls(L"ContactItem.BusinessTelephoneNumber get"), 1u) << "judged by the fields in their order";
    EXPECT_EQ(calls(L"ContactItem.CarTelephoneNumber get"), 1u);
    EXPECT_EQ(calls(L"ContactItem.HomeTelephoneNumber get"), 0u) << "none behind the matching one";
    EXPECT_EQ(field(L"contact", 1100, L"CarTelephoneNumber"), L"999") << "rewritten and saved";
}

TEST_F(ContactTable, ContactOfAFormOfItsOwn_IsAContact)
{
    openAs(Version::v2016, L"[contact]\nLastName=Form\nMessageClass=IPM.Contact.Acme\n" + personWith(L"9.9"));
    EXPECT_EQ(walkFindsWhom(L"99"), L"Wanted");
    EXPECT_TRUE(wasTakenByIdentifier());
}

TEST_F(ContactTable, SeveralMayHaveTheNumber_TheWalkRuns)
{
    openAs(Version::v2016, people(3) + personWith(L"9.9 9") + personWith(L"99 9"));
    EXPECT_EQ(ownerOf(L"999"), PossibleOwner::undecided);
    EXPECT_TRUE(walkFinds(L"999"));
    EXPECT_EQ(calls(L"Items.GetFirst method"), 1u);
}

TEST_F(ContactTable, DistributionListAmongTheContacts_TheWalkRuns_WhereverItLies)
{
    for (const std::wstring& records : {L"[distlist]\nDLName=Everybody\n" + personWith(L"9.9"),
                                        personWith(L"9.9") + L"[distlist]\nDLName=Everybody\n"}) {
        openAs(Version::v2016, records);
        EXPECT_EQ(ownerOf(L"99"), PossibleOwner::undecided) << "a walk would end at it";
        EXPECT_EQ(ownerOf(L"98"), PossibleOwner::nobody) << "before or behind it";
    }
}

TEST_F(ContactTable, ContactHasGoneWhenItIsAskedFor_TheWalkRuns)
{
    openAs(Version::v2016, people(3) + personWith(L"9.9"));
    outlook.command(L"later", L"1 delete " + field(L"contact", 3, L"EntryID"));
    EXPECT_EQ(walkFindsWhom(L"99"), L"nobody") << "it lies in Deleted Items, where its identifier still finds it";
    EXPECT_EQ(calls(L"NameSpace.GetItemFromID method"), 1u);
    EXPECT_EQ(calls(L"Items.GetFirst method"), 1u);
}

TEST_F(ContactTable, ContactHasGotAnotherNumberMeanwhile_TheWalkRuns)
{
    openAs(Version::v2016, people(3) + personWith(L"9.9"));
    outlook.command(L"later", L"1 change " + field(L"contact", 3, L"EntryID") + L"\nCarTelephoneNumber=8.8\n");
    EXPECT_EQ(walkFindsWhom(L"99"), L"nobody");
    EXPECT_EQ(calls(L"Items.GetFirst method"), 1u);
}

TEST_F(ContactTable, FolderIsEmptiedWhileItIsRead_NobodyIsFound)
{
    openAs(Version::v2016, personWith(L"9.9"));
    outlook.command(L"later", L"1 delete " + field(L"contact", 0, L"EntryID"));
    EXPECT_EQ(walkFindsWhom(L"99"), L"nobody");
}

TEST_F(ContactTable, OlderOutlook_ProvesNothing)
{
    openAs(Version::v2003, people(3));
    EXPECT_FALSE(isProvedAbsent(L"999"));
}

TEST_F(ContactTable, RefusedColumnOrFailingBlock_ProvesNothing)
{
    for (const wchar_t* fault : {L"on Columns.Add at 5 fail 0x80070057", L"on Table.GetArray at 2 fail 0x80004005",
                                 L"on Table.GetRowCount fail 0x80004005", L"on Columns.RemoveAll fail 0x80004005"}) {
        openAs(Version::v2016, people(1200));
        recorder.faults.add(fault);
        EXPECT_FALSE(isProvedAbsent(L"999")) << desk::utf8(fault);
        recorder.faults.clear();
    }
}

// A table shows 255 bytes of a text at most.

TEST_F(ContactTable, LongText_LeavesOpenOnlyANumberThatBeginsLikeIt)
{
    for (const std::size_t length : {127u, 255u, 256u, 10'000u}) {
        const std::wstring text(length, L'1');
        openAs(Version::v2016, people(3) + personWith(text));
        EXPECT_EQ(ownerOf(L"999"), PossibleOwner::nobody) << length;
        EXPECT_EQ(ownerOf(L"111"), PossibleOwner::nobody) << length << ": it is longer than that";
        EXPECT_EQ(ownerOf(text), PossibleOwner::oneContact) << length;
        EXPECT_TRUE(walkFinds(text)) << length;
        EXPECT_EQ(ownerOf(std::wstring(126, L'1')), PossibleOwner::nobody) << length;
    }
}

TEST_F(ContactTable, LongTextOfOtherLength_MayBeTheNumber_AndIsJudgedByItsField)
{
    openAs(Version::v2016, people(3) + personWith(std::wstring(300, L'1')));
    const std::wstring sought(299, L'1');
    EXPECT_EQ(ownerOf(sought), PossibleOwner::oneContact) << "cut, both begin alike";
    EXPECT_FALSE(walkFinds(sought));
    EXPECT_EQ(calls(L"Items.GetFirst method"), 1u) << "the named one has not got it: the walk has the last word";
}

TEST_F(ContactTable, LongTextOfSeparators_MayBeAnyNumber)
{
    openAs(Version::v2016, people(3) + personWith(std::wstring(200, L'.') + std::wstring(100, L' ') + L"999"));
    EXPECT_EQ(ownerOf(L"999"), PossibleOwner::oneContact);
    EXPECT_EQ(walkFindsWhom(L"999"), L"Wanted");
}

TEST_F(ContactTable, EmptyFolder_IsProved)
{
    openAs(Version::v2007, L"");
    EXPECT_TRUE(isProvedAbsent(L"999"));
}

TEST_F(ContactTable, Version2007AndSeveralBlocks_IsProved_AndTheLastContactIsSeen)
{
    openAs(Version::v2007, people(1200));
    EXPECT_TRUE(isProvedAbsent(L"999"));
    openAs(Version::v2007, people(1200) + personWith(L"9 9.9"));
    EXPECT_EQ(ownerOf(L"999"), PossibleOwner::oneContact) << "it stands in the third block";
    EXPECT_TRUE(walkFinds(L"999"));
}

TEST_F(ContactTable, CellsThatAreNullOrNotFound_AreWithoutANumber)
{
    for (const wchar_t* cell : {L"missingcell null", L"missingcell notfound", L"missingcell empty"}) {
        openAs(Version::v2016, people(3) + L"[distlist]\nDLName=Everybody\n");
        outlook.command(L"missingcell", std::wstring_view(cell).substr(12));
        EXPECT_TRUE(isProvedAbsent(L"999")) << desk::utf8(cell);
        EXPECT_FALSE(isProvedAbsent(L"")) << desk::utf8(cell) << ": most fields are empty";
    }
}

TEST_F(ContactTable, ContactThatComesBehindTheLastBlock_IsNotOverlooked)
{
    openAs(Version::v2016, people(600));
    outlook.command(L"later", L"2 add contact\nLastName=Late\nCarTelephoneNumber=9 9.9\n");
    EXPECT_TRUE(walkFinds(L"999")) << "the table has not ended: the walk runs";
}

TEST_F(ContactTable, ContactThatComesBetweenTheBlocks_IsNotOverlooked)
{
    openAs(Version::v2016, people(600));
    outlook.command(L"later", L"1 add contact\nLastName=Late\nCarTelephoneNumber=9 9.9\n");
    EXPECT_TRUE(walkFinds(L"999"));
}

TEST_F(ContactTable, ContactThatComesBeforeThePlaceInTheTable_IsNotOverlooked)
{
    openAs(Version::v2016, people(600));
    outlook.command(L"roworder", L"reversed");
    outlook.command(L"later", L"2 add contact\nLastName=Late\nCarTelephoneNumber=9 9.9\n");
    EXPECT_TRUE(walkFinds(L"999")) << "the table has ended, but has more rows";
}

TEST_F(ContactTable, ContactThatGoesMeanwhile_AbsenceNoLongerHolds_AndTheWalkFindsNobody)
{
    openAs(Version::v2016, people(600));
    outlook.command(L"later", L"1 delete " + field(L"contact", 0, L"EntryID"));
    EXPECT_FALSE(walkFinds(L"999"));
    EXPECT_EQ(calls(L"Items.GetFirst method"), 1u) << "rows have moved: one may not have been read";
}

TEST_F(ContactTable, ProofOfAbsence_AsksOnceWhetherTheTableHasEnded)
{
    openAs(Version::v2016, people(1200));
    EXPECT_TRUE(isProvedAbsent(L"999"));
    EXPECT_EQ(calls(L"Table.EndOfTable get"), 1u);
}

TEST_F(ContactTable, GuardRefusesAColumn_OneQuestion_AndTablesAreLeftAloneUntilTheNextInit)
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
        EXPECT_TRUE(isProvedAbsent(L"999"));
    }
}

TEST_F(ContactTable, UserIsAskedAboutAColumn_AndAllows_TablesAreLeftAloneAllTheSame)
{
    openAs(Version::v2016, people(10));
    outlook.command(L"guard", L"allow 1200");
    for (int call = 0; call < 3; ++call) EXPECT_TRUE(walkFinds(L"557"));
    EXPECT_EQ(questions(), 1u) << "each further column would have been asked about, too";
    EXPECT_EQ(calls(L"Folder.GetTable method"), 1u);
}

TEST_F(ContactTable, ColumnsAllowedWithoutAQuestion_AreTaken)
{
    openAs(Version::v2016, people(10));
    outlook.command(L"guard", L"allow");
    EXPECT_TRUE(isProvedAbsent(L"999"));
    EXPECT_TRUE(isProvedAbsent(L"999"));
}

TEST_F(ContactTable, OutlookWithoutTables_IsNoGuard)
{
    openAs(Version::v2003, people(3));
    EXPECT_FALSE(isProvedAbsent(L"999"));
    outlook.setVersion(Version::v2016);
    EXPECT_TRUE(isProvedAbsent(L"999"));
}

TEST_F(ContactTable, CellsOfIdentifierOrClassThatCannotBeTold_TheWalkRuns)
{
    for (const wchar_t* column : {L"EntryID", L"MessageClass"})
        for (const wchar_t* cell : {L"empty", L"null", L"notfound"}) {
            openAs(Version::v2016, people(3) + personWith(L"9.9"));
            outlook.command(L"hiddencolumn", column);
            outlook.command(L"missingcell", cell);
            EXPECT_EQ(ownerOf(L"99"), PossibleOwner::undecided) << desk::utf8(column) << " " << desk::utf8(cell);
            EXPECT_EQ(walkFindsWhom(L"99"), L"Wanted");
            EXPECT_EQ(ownerOf(L"98"), PossibleOwner::nobody) << "no telephone number says so";
        }
}

// As many rows as columns: only the cells tell which index is which.

TEST_F(ContactTable, ArrayOfEitherShape_IsReadAlike)
{
    for (const wchar_t* shape : {L"columns", L"rows"})
        for (const int others : {0, 3, 14, 599}) {
            openAs(Version::v2016, people(others) + personWith(L"9.9"));
            outlook.command(L"arrayshape", shape);
            EXPECT_EQ(ownerOf(L"99"), PossibleOwner::oneContact) << desk::utf8(shape) << " " << others;
            EXPECT_EQ(ownerOf(L"98"), PossibleOwner::nobody) << desk::utf8(shape) << " " << others;
            EXPECT_EQ(walkFindsWhom(L"99"), L"Wanted");
        }
}

TEST_F(ContactTable, ArrayWhoseShapeCannotBeTold_TheWalkRuns)
{
    openAs(Version::v2016, people(14) + personWith(L"9.9"));
    outlook.command(L"hiddencolumn", L"MessageClass");
    EXPECT_EQ(ownerOf(L"98"), PossibleOwner::undecided) << "fifteen rows of fifteen columns";
    EXPECT_EQ(walkFindsWhom(L"99"), L"Wanted");
}

TEST_F(ContactTable, NamedContactThatCannotBeRead_TheWalkRuns)
{
    for (const wchar_t* fault :
         {L"on ContactItem.* get from 1 fail 0x80004005", L"on NameSpace.GetItemFromID answer Nothing",
          L"on NameSpace.GetItemFromID fail 0x8004010F"}) {
        openAs(Version::v2016, people(3) + personWith(L"9.9"));
        recorder.faults.add(fault);
        const bool isFound = walkFinds(L"99");
        EXPECT_EQ(calls(L"Items.GetFirst method"), 1u) << desk::utf8(fault);
        EXPECT_EQ(isFound, std::wstring_view(fault).starts_with(L"on NameSpace")) << desk::utf8(fault);
        recorder.faults.clear();
    }
}

// What one event asks for twice.

}
