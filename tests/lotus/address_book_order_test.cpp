// Which address books there are, and in which order they are searched.
#include "settings_fixture.h"

namespace hublink {

namespace {

using LotusBookOrder = SettingsFixture;

}

TEST_F(LotusBookOrder, OrderOfTwoBooks_IsSearchOrder_AndFirstPersonalOneIsSelected)
{
    read(twoBooks("Base 2,<none>,Base 1", "true"));
    EXPECT_EQ(bases(), (Names{L"two.nsf", L"one.nsf"}));
    EXPECT_EQ(session.nSelectedPersonal, 1);
    EXPECT_EQ(session.nbPublicAddressBook, 2);
}

TEST_F(LotusBookOrder, BaseNone_IsCounted_LeavesAnEmptyBookAtTheEnd_AndTheReadingGoesOn)
{
    session.LotusCallLog.State = L"old";
    session.bShowGrpwAgenda = true;
    read(twoBooks("Base <none>,Base 2,Base 1", "true") + "[lotus call log description]\nState=read\n");
    EXPECT_EQ(bases(), (Names{L"two.nsf", L"one.nsf", L""}));
    EXPECT_EQ(session.nSelectedPersonal, 1);
    EXPECT_FALSE(session.bShowGrpwAgenda);
    EXPECT_EQ(session.LotusCallLog.State, L"read");
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
}

TEST_F(LotusBookOrder, BothBooksPersonal_TheOneNamedFirst_IsSelected)
{
    read(twoBooks("<none>,Base 2,Base 1", "true", "true"));
    EXPECT_EQ(bases(), (Names{L"two.nsf", L"one.nsf"}));
    EXPECT_EQ(session.nSelectedPersonal, 0);
}

TEST_F(LotusBookOrder, NoPersonalBook_NoneIsSelected)
{
    session.nSelectedPersonal = 1;
    read(twoBooks("Base 1,Base 2"));
    EXPECT_EQ(session.nSelectedPersonal, -1);
}

TEST_F(LotusBookOrder, PersonalBookLeftOutOfTheOrder_IsNeitherSearchedNorSelected)
{
    read(twoBooks("Base 2", "true"));
    EXPECT_EQ(bases(), Names{L"two.nsf"});
    EXPECT_EQ(session.nSelectedPersonal, -1);
}

TEST_F(LotusBookOrder, BookNamedTwice_IsSearchedTwice_AndSelectedAtItsFirstPlace)
{
    read(twoBooks("Base 2,Base 1,Base 2,Base 1", "true"));
    EXPECT_EQ(bases(), (Names{L"two.nsf", L"one.nsf", L"two.nsf", L"one.nsf"}));
    EXPECT_EQ(session.nSelectedPersonal, 1);
}

TEST_F(LotusBookOrder, EveryWordBaseOfAnEntry_IsRemoved_OrNoneIsThere)
{
    read(twoBooks("Base Base 2,1, Base 2"));
    EXPECT_EQ(bases(), (Names{L"two.nsf", L"one.nsf", L"two.nsf"}));
}

TEST_F(LotusBookOrder, CountThatIsNone_EndsTheReading_WithTheOldBooksInUse)
{
    for (const char* count : {"0", "-1", "-32768", "abc", "70000", "2 books", ""}) {
        expectStopped("[lotus]\nNbPublicAddressBook=" + std::string(count) + "\nOrder=Base 1\n", {L"old.nsf"});
        EXPECT_EQ(session.nSelectedPersonal, -1) << count;
    }
}

TEST_F(LotusBookOrder, Count_IsKeptWhenItIsANumber_AndElseStays)
{
    session.nbPublicAddressBook = 5;
    read("[lotus]\nNbPublicAddressBook=abc\n");
    EXPECT_EQ(session.nbPublicAddressBook, 5);
    read("[lotus]\nNbPublicAddressBook=70000\n");
    EXPECT_EQ(session.nbPublicAddressBook, 5);
    read("[lotus]\nNbPublicAddressBook=-1\n");
    EXPECT_EQ(session.nbPublicAddressBook, -1);
    read("[other]\n");
    EXPECT_EQ(session.nbPublicAddressBook, 0);
}

TEST_F(LotusBookOrder, LargestCount_BooksWithoutASectionAreEmpty)
{
    read("[lotus]\nNbPublicAddressBook=32767\nOrder=Base 32767,Base 2,Base 1000\n"
         "[LOTUS Base Description 2]\nbase=two.nsf||||\nPersonalAddressBook=true\n"
         "[lotus base description 32767]\nbase=last.nsf||||\n");
    EXPECT_EQ(bases(), (Names{L"last.nsf", L"two.nsf", L""}));
    EXPECT_EQ(session.nSelectedPersonal, 1);
    EXPECT_EQ(session.LotusAddressBooks.at(2).PhoneNumber, Names{L""});
    EXPECT_EQ(session.LotusAddressBooks.at(2).MailAddress, Names{L""});
}

TEST_F(LotusBookOrder, MissingFile_EndsTheReading)
{
    ReadLotusIni(session);
    EXPECT_EQ(trapped.procedures, Names{L"ReadLotusIni"});
    EXPECT_EQ(session.LotusAddressBooks.size(), 0u);
    ReadLotusPersonalLogIni(session);
    EXPECT_EQ(session.LotusPersonalLog.Body, L"");
}

TEST_F(LotusBookOrder, OrderThatIsMissing_NamesBookZero_AndEndsTheReading)
{
    expectStopped("[lotus]\nNbPublicAddressBook=1\n[lotus base description 1]\nbase=one.nsf||||\n", {L""});
    EXPECT_EQ(session.nSelectedPersonal, -1);
}

TEST_F(LotusBookOrder, OrderThatNamesNoBook_EndsTheReading_WithTheOldBooksInUse)
{
    for (const char* order : {"", "<none>", "<none>,<none>"}) expectStopped(twoBooks(order, "true"), {L"old.nsf"});
    EXPECT_EQ(session.nSelectedPersonal, -1);
}

TEST_F(LotusBookOrder, OrderEntryThatNamesNoBook_EndsTheReading_AfterTheBooksBeforeIt)
{
    for (const char* entry : {"abc", "0", "3", "-1", "70000", "Base", "Base1", "<None>", " "})
        expectStopped(twoBooks("Base 2," + std::string(entry) + ",Base 1", "false", "true"), {L"two.nsf", L"", L""});
    EXPECT_EQ(session.nSelectedPersonal, 0);
    expectStopped(twoBooks("Base 2,,Base 1"), {L"two.nsf", L"", L""});
}

}
