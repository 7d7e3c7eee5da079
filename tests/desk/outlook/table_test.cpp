#include "automation/array.h"
#include "mailbox_fixture.h"

namespace {

using automation::Object;
using automation::Value;

class TableObject : public MailboxFixture {
protected:
    TableObject()
    {
        outlook.load(L"[contact]\nFullName=Ann Abel\nMobileTelephoneNumber=1\n"
                     L"[distlist]\nDLName=All\n[contact]\nFullName=Cy Cole\n");
    }

    Object table() { return folder(olContacts).get(L"GetTable").object(); }

    // One with these columns only.
    Object tableOf(std::initializer_list<const wchar_t*> names)
    {
        const Object made = table();
        const Object columns = made.get(L"Columns").object();
        columns.call(L"RemoveAll");
        for (const wchar_t* name : names) columns.call(L"Add", {name});
        return made;
    }

    static Value cell(const Value& array, LONG column, LONG row)
    {
        LONG index[] = {column, row};
        Value value;
        automation::check(SafeArrayGetElement(V_ARRAY(&array.variant()), index, value.receive()), L"element");
        return value;
    }

    static LONG length(const Value& array, UINT dimension)
    {
        LONG lower = 0, upper = 0;
        SafeArrayGetLBound(V_ARRAY(&array.variant()), dimension, &lower);
        SafeArrayGetUBound(V_ARRAY(&array.variant()), dimension, &upper);
        return upper - lower + 1;
    }
};

}

TEST_F(TableObject, DefaultColumns_AreThoseOfAContactsFolder)
{
    const Object columns = table().get(L"Columns").object();
    std::wstring names;
    for (std::int32_t number = 1; number <= columns.get(L"Count").int32(); ++number)
        names += columns.get(L"Item", {number}).object().get(L"Name").text() + L" ";
    EXPECT_EQ(names, L"EntryID Subject CreationTime LastModificationTime MessageClass FirstName LastName CompanyName ");
}

TEST_F(TableObject, Array_IsByColumnThenRow_AndMovesOn)
{
    const Object made = tableOf({L"FullName", L"MobileTelephoneNumber"});
    EXPECT_EQ(made.get(L"GetRowCount").int32(), 3);
    const Value first = made.get(L"GetArray", {std::int32_t{2}});
    EXPECT_EQ(length(first, 1), 2);
    EXPECT_EQ(length(first, 2), 2);
    EXPECT_EQ(cell(first, 0, 0).text(), L"Ann Abel");
    EXPECT_EQ(cell(first, 1, 0).text(), L"1");
    EXPECT_EQ(cell(first, 1, 1).type(), VT_EMPTY) << "a distribution list has no telephones";
    EXPECT_FALSE(made.get(L"EndOfTable").isTrue());
    const Value rest = made.get(L"GetArray", {std::int32_t{3}});
    EXPECT_EQ(length(rest, 2), 1);
    EXPECT_EQ(cell(rest, 0, 0).text(), L"Cy Cole");
    EXPECT_TRUE(made.get(L"EndOfTable").isTrue());
    EXPECT_EQ(length(made.get(L"GetArray", {std::int32_t{3}}), 2), 0);
    made.call(L"MoveToStart");
    EXPECT_EQ(cell(made.get(L"GetArray", {std::int32_t{1}}), 0, 0).text(), L"Ann Abel");
}

TEST_F(TableObject, ArrayWithTheRowsFirst_HoldsTheSame)
{
    outlook.ask(L"arrayshape rows");
    const Value array = tableOf({L"FullName", L"FileAs"}).get(L"GetArray", {std::int32_t{3}});
    EXPECT_EQ(automation::extentsOf(array), (std::vector<std::size_t>{3, 2}));
    EXPECT_EQ(automation::elementsOf(array)[0].text(), L"Ann Abel");
    EXPECT_EQ(automation::elementsOf(array)[2].text(), L"Cy Cole");
    EXPECT_EQ(automation::elementsOf(array)[3].text(), L"Abel, Ann");
}

TEST_F(TableObject, AddedColumn_ResetsTheTable)
{
    const Object made = tableOf({L"FullName"});
    made.get(L"GetArray", {std::int32_t{2}});
    made.get(L"Columns").object().call(L"Add", {L"mobiletelephonenumber"});
    EXPECT_EQ(cell(made.get(L"GetArray", {std::int32_t{1}}), 1, 0).text(), L"1");
}

TEST_F(TableObject, UnknownAndComputedColumns_AreRefused)
{
    const Object columns = table().get(L"Columns").object();
    EXPECT_EQ(failureOf([&] { columns.call(L"Add", {L"ShoeSize"}); }).description(),
              L"The property \"ShoeSize\" is unknown or cannot be found.");
    EXPECT_EQ(failureOf([&] { columns.call(L"Add", {L"LastFirstNoSpace"}); }).code(), E_INVALIDARG);
    EXPECT_EQ(failureOf([&] { columns.call(L"Add", {L"Email1EntryID"}); }).code(), E_INVALIDARG);
    EXPECT_EQ(columns.get(L"Count").int32(), 8);
}

TEST_F(TableObject, LongText_IsCutAt255)
{
    outlook.load(L"[contact]\nFullName=Ann Abel\nBody=" + std::wstring(300, L'x') + L"\n");
    EXPECT_EQ(cell(tableOf({L"Body"}).get(L"GetArray", {std::int32_t{1}}), 0, 0).text(), std::wstring(255, L'x'));
    EXPECT_EQ(items(olContacts).get(L"GetFirst").object().get(L"Body").text().size(), 300u);
    outlook.ask(L"longesttext 127");
    EXPECT_EQ(cell(tableOf({L"Body"}).get(L"GetArray", {std::int32_t{1}}), 0, 0).text(), std::wstring(127, L'x'));
}

TEST_F(TableObject, MoreRowsThanThereAre_AreAnErrorInVersion2007Only)
{
    EXPECT_EQ(length(tableOf({L"FullName"}).get(L"GetArray", {std::int32_t{100}}), 2), 3);
    outlook.ask(L"version 2007");
    const auto error = failureOf([&] { table().get(L"GetArray", {std::int32_t{4}}); });
    EXPECT_EQ(error.code(), E_INVALIDARG);
    EXPECT_EQ(error.description(), L"Could not complete the operation. One or more parameter values are not valid.");
    EXPECT_EQ(length(tableOf({L"FullName"}).get(L"GetArray", {std::int32_t{3}}), 2), 3);
}

TEST_F(TableObject, OldOutlook_DoesNotKnowGetTable)
{
    outlook.ask(L"old on");
    EXPECT_EQ(failureOf([&] { table(); }).code(), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(outlook.application().get(L"Version").text().substr(0, 3), L"11.");
    outlook.ask(L"old off");
    EXPECT_EQ(table().get(L"GetRowCount").int32(), 3);
}

TEST_F(TableObject, Rows_ComeOneByOne)
{
    const Object made = table();
    const Object row = made.get(L"GetNextRow").object();
    EXPECT_EQ(row.get(L"Item", {L"FirstName"}).text(), L"Ann");
    EXPECT_EQ(row.get(L"Item", {std::int32_t{2}}).text(), L"Ann Abel");
    made.get(L"GetNextRow");
    made.get(L"GetNextRow");
    EXPECT_FALSE(made.get(L"GetNextRow").object());
}

TEST_F(TableObject, Filter_LimitsTheRows)
{
    const Object made = folder(olContacts).get(L"GetTable", {L"[MobileTelephoneNumber] = '1'"}).object();
    EXPECT_EQ(made.get(L"GetRowCount").int32(), 1);
    EXPECT_EQ(table().get(L"Restrict", {L"[FullName] <> 'x'"}).object().get(L"GetRowCount").int32(), 3);
}

TEST_F(TableObject, TenThousandContacts_ComeInOneArray)
{
    std::wstring store;
    for (int number = 0; number < 10'000; ++number)
        store += L"[contact]\nFullName=P " + std::to_wstring(number) + L"\nHomeTelephoneNumber=0\n";
    outlook.load(store);
    const Object made = tableOf({L"FullName", L"HomeTelephoneNumber", L"MobileTelephoneNumber", L"EntryID"});
    const Value all = made.get(L"GetArray", {std::int32_t{10'000}});
    EXPECT_EQ(cell(all, 0, 9999).text(), L"P 9999");
}

TEST_F(TableObject, MissingCells_AreEmptyOrNullOrAnError)
{
    const auto missing = [&] {
        return cell(tableOf({L"MobileTelephoneNumber"}).get(L"GetArray", {std::int32_t{3}}), 0, 1);
    };
    EXPECT_EQ(missing().type(), VT_EMPTY);
    outlook.ask(L"missingcell null");
    EXPECT_EQ(missing().type(), VT_NULL);
    outlook.ask(L"missingcell notfound");
    ASSERT_EQ(missing().type(), VT_ERROR);
    EXPECT_EQ(V_ERROR(&missing().variant()), static_cast<SCODE>(0x8004010FL));
}

TEST_F(TableObject, WhatComesAndGoesWhileItIsRead_IsSeen)
{
    const Object made = tableOf({L"FullName"});
    outlook.ask(L"later 1 add contact\nFullName=Eve Ebel\n");
    made.get(L"GetArray", {std::int32_t{3}});
    EXPECT_FALSE(made.get(L"EndOfTable").isTrue()) << "one came behind the last block";
    EXPECT_EQ(made.get(L"GetRowCount").int32(), 4);
    EXPECT_EQ(cell(made.get(L"GetArray", {std::int32_t{3}}), 0, 0).text(), L"Eve Ebel");
    EXPECT_TRUE(made.get(L"EndOfTable").isTrue());
    made.call(L"MoveToStart");
    made.get(L"GetArray", {std::int32_t{2}});
    items(olContacts).get(L"GetFirst").object().call(L"Delete");
    EXPECT_EQ(made.get(L"GetRowCount").int32(), 3);
    EXPECT_EQ(cell(made.get(L"GetArray", {std::int32_t{1}}), 0, 0).text(), L"Cy Cole") << "the place is kept";
}

TEST_F(TableObject, RowsInReverse_WhatComesStandsBeforeThePlace)
{
    outlook.ask(L"roworder reversed");
    const Object made = tableOf({L"FullName"});
    EXPECT_EQ(cell(made.get(L"GetArray", {std::int32_t{1}}), 0, 0).text(), L"Cy Cole");
    outlook.ask(L"add contact\nFullName=Eve Ebel\n");
    EXPECT_EQ(made.get(L"GetRowCount").int32(), 4);
    EXPECT_NE(cell(made.get(L"GetArray", {std::int32_t{1}}), 0, 0).text(), L"Eve Ebel") << "the place is kept";
    made.get(L"GetArray", {std::int32_t{1}});
    EXPECT_TRUE(made.get(L"EndOfTable").isTrue()) << "only the count of rows tells that one came";
}
