#include "notes_fixture.h"

namespace {

using automation::Object;
using automation::Value;

using NotesSession = NotesFixture;

}

TEST_F(NotesSession, CreateObject_GivesBothClassesOfOneNotes)
{
    const Object created = Object::create(L"Notes.NotesSession");
    EXPECT_EQ(created.get(L"CommonUserName").text(), L"Anna Keller");
    const Object database = created.get(L"GetDatabase", {L"", L"local.nsf"}).object();
    const Object document = database.get(L"CreateDocument").object();
    const Object window = Object::create(L"Notes.NotesUIWorkspace");
    EXPECT_FALSE(window.get(L"CurrentDocument").object());
    EXPECT_TRUE(window.get(L"EditDocument", {true, document}).object());
    EXPECT_TRUE(workspace().get(L"CurrentDocument").object());
}

TEST_F(NotesSession, ClassesWithdrawn_CreateObjectFails_UntilTheyAreOfferedAgain)
{
    const Object before = Object::create(L"Notes.NotesSession");
    notes.withdraw();
    EXPECT_NE(failureOf([] { Object::create(L"Notes.NotesUIWorkspace"); }).code(), S_OK);
    EXPECT_EQ(before.get(L"Platform").text(), L"Windows/32");
    notes.offer();
    EXPECT_TRUE(Object::create(L"Notes.NotesUIWorkspace"));
}

TEST_F(NotesSession, User_IsKnownByBothNames)
{
    EXPECT_EQ(session().get(L"username").text(), L"CN=Anna Keller/OU=Paris/O=Acme");
    EXPECT_EQ(session().get(L"EffectiveUserName").text(), L"CN=Anna Keller/OU=Paris/O=Acme");
    EXPECT_EQ(session().get(L"COMMONUSERNAME").text(), L"Anna Keller");
}

TEST_F(NotesSession, ClientOutsideNotes_RunsOnNoServer_AndInNoDatabase)
{
    EXPECT_EQ(session().get(L"ServerName").text(), L"");
    EXPECT_FALSE(session().get(L"IsOnServer").isTrue());
    EXPECT_FALSE(session().get(L"CurrentDatabase").object());
    EXPECT_EQ(session().get(L"NotesVersion").text(), L"Release 8.5.3|September 15, 2011");
}

TEST_F(NotesSession, EnvironmentString_HasADollarBeforeItsName_UnlessSystem)
{
    EXPECT_EQ(session().get(L"GetEnvironmentString", {L"Dialer"}).text(), L"on");
    EXPECT_EQ(session().get(L"GetEnvironmentString", {L"dialer", false}).text(), L"on");
    EXPECT_EQ(session().get(L"GetEnvironmentString", {L"$Dialer", true}).text(), L"on");
    EXPECT_EQ(session().get(L"GetEnvironmentString", {L"Location", true}).text(), L"Office");
    EXPECT_EQ(session().get(L"GetEnvironmentString", {L"$Dialer"}).text(), L"") << "$$Dialer is another one";
    EXPECT_EQ(session().get(L"GetEnvironmentString", {L"Location"}).text(), L"");
    EXPECT_EQ(session().get(L"GetEnvironmentString", {L"Nothing", true}).type(), VT_BSTR);
}

TEST_F(NotesSession, EnvironmentVariable_SetAsUserOrSystemOne_IsKept)
{
    const Object own = session();
    own.call(L"SetEnvironmentVar", {L"Town", L"Salvador"});
    own.call(L"SetEnvironmentVar", {L"$Number", std::int32_t{12}});
    own.call(L"SetEnvironmentVar", {L"LOCATION", L"Home", true});
    own.call(L"SetEnvironmentVar", {L"dialer", L""});
    EXPECT_EQ(notes.ask(L"environment"), L"$Dialer=\n$Number=12\n$Town=Salvador\nLocation=Home");
    EXPECT_EQ(notes.changes(), 4);
    EXPECT_EQ(notes.model().records()[1].fields.size(), 4u) << "they are in the store";
}

TEST_F(NotesSession, EnvironmentValue_IsANumberWhereItIsOne)
{
    const Object own = session();
    own.call(L"SetEnvironmentVar", {L"SeqNo", std::int16_t{7}});
    const Value number = own.get(L"GetEnvironmentValue", {L"SeqNo"});
    EXPECT_EQ(number.type(), VT_R8);
    EXPECT_EQ(number.number(), 7.0);
    EXPECT_EQ(own.get(L"GetEnvironmentValue", {L"Dialer"}).text(), L"on");
    EXPECT_EQ(own.get(L"GetEnvironmentValue", {L"Nothing"}).type(), VT_EMPTY);
}

TEST_F(NotesSession, UnknownMember_IsAnUnknownName)
{
    EXPECT_EQ(failureOf([&] { session().get(L"Nonsense"); }).code(), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(failureOf([&] { session().get(L"GetDatabase", {L""}); }).code(), DISP_E_BADPARAMCOUNT);
}

TEST_F(NotesSession, Calls_AreRecordedByClassAndMember)
{
    const Object own = session();
    own.get(L"getenvironmentstring", {L"Dialer", false});
    EXPECT_EQ(notes.recorder().record(), L"NotesSession.getenvironmentstring lookup\n"
                                         L"NotesSession.GetEnvironmentString method (BSTR \"Dialer\", BOOL False)");
    notes.recorder().faults.add(L"on NotesSession.UserName raise 0x80004005 Lotus Notes|gone");
    EXPECT_EQ(failureOf([&] { own.get(L"UserName"); }).description(), L"gone");
}
