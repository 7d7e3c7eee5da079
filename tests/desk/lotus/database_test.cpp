#include "notes_fixture.h"

#include <cmath>

namespace {

using automation::Object;
using automation::Value;

class NotesDatabase : public NotesFixture {
protected:
    Object database(const wchar_t* server, const wchar_t* file)
    {
        return session().get(L"GetDatabase", {server, file}).object();
    }

    bool isOpen(const wchar_t* server, const wchar_t* file) { return database(server, file).get(L"IsOpen").isTrue(); }
};

}

TEST_F(NotesDatabase, ServerNamedEitherWay_AndPathWithoutCaseAndEnding_IsFound)
{
    EXPECT_TRUE(isOpen(L"CN=Mail1/OU=Paris/O=Acme", L"books\\contacts.nsf"));
    EXPECT_TRUE(isOpen(L"mail1/paris/acme", L"BOOKS/Contacts.NSF"));
    EXPECT_TRUE(isOpen(L"Mail1/OU=Paris/Acme", L"books\\contacts"));
    EXPECT_TRUE(isOpen(L"", L"local"));
    EXPECT_FALSE(isOpen(L"", L"books\\contacts.nsf"));
    EXPECT_FALSE(isOpen(L"Mail1/Paris/Acme", L"local.nsf"));
    EXPECT_FALSE(isOpen(L"Mail2/Paris/Acme", L"books\\contacts.nsf"));
    EXPECT_FALSE(isOpen(L"", L""));
}

TEST_F(NotesDatabase, OpenDatabase_TellsItsPlaceAsItIsStored)
{
    const Object found = database(L"mail1/paris/acme", L"BOOKS/CONTACTS");
    EXPECT_EQ(found.get(L"Server").text(), L"CN=Mail1/OU=Paris/O=Acme");
    EXPECT_EQ(found.get(L"FilePath").text(), L"books\\contacts.nsf");
    EXPECT_EQ(found.get(L"FileName").text(), L"contacts.nsf");
    EXPECT_EQ(found.get(L"Title").text(), L"Contacts");
    EXPECT_FALSE(found.get(L"IsFTIndexed").isTrue());
    EXPECT_EQ(database(L"", L"local.nsf").get(L"Server").text(), L"");
}

TEST_F(NotesDatabase, MissingDatabase_IsAnObjectThatIsNotOpen_AndCannotBeUsed)
{
    const Object missing = database(L"Mail9/Acme", L"x\\y.nsf");
    EXPECT_FALSE(missing.get(L"IsOpen").isTrue());
    EXPECT_EQ(missing.get(L"Server").text(), L"Mail9/Acme");
    EXPECT_EQ(missing.get(L"FilePath").text(), L"x\\y.nsf");
    EXPECT_EQ(missing.get(L"FileName").text(), L"y.nsf");
    EXPECT_EQ(missing.get(L"Title").text(), L"");
    for (const wchar_t* member :
         {L"GetView", L"CreateDocument", L"GetDocumentByID", L"GetDocumentByUNID", L"IsFTIndexed", L"LastModified"}) {
        const auto failure = failureOf([&] {
            if (std::wstring_view(member).starts_with(L"Get")) missing.get(member, {L"x"});
            else missing.get(member);
        });
        EXPECT_EQ(failure.description(), L"Database has not been opened yet.") << failure.what();
        EXPECT_EQ(failure.code(), static_cast<HRESULT>(0x800A0000 + 4063));
        EXPECT_EQ(failure.source(), L"Lotus Notes");
    }
}

TEST_F(NotesDatabase, ThirdArgument_DecidesOnAnObjectForAMissingDatabase)
{
    EXPECT_TRUE(session().get(L"GetDatabase", {L"", L"no.nsf", true}).object());
    const Value none = session().get(L"GetDatabase", {L"", L"no.nsf", false});
    EXPECT_EQ(none.type(), VT_DISPATCH);
    EXPECT_FALSE(none.object());
    EXPECT_TRUE(session().get(L"GetDatabase", {L"", L"local.nsf", false}).object());
}

TEST_F(NotesDatabase, DatabaseThatCannotBeOpened_OpensLater)
{
    notes.ask(L"available local.nsf off");
    const Object local = database(L"", L"local.nsf");
    EXPECT_FALSE(local.get(L"IsOpen").isTrue());
    EXPECT_FALSE(local.get(L"Open", {L"", L""}).isTrue());
    notes.ask(L"available local.nsf on");
    EXPECT_FALSE(local.get(L"IsOpen").isTrue()) << "not by itself";
    EXPECT_TRUE(local.get(L"Open").isTrue());
    EXPECT_TRUE(local.get(L"IsOpen").isTrue());
    EXPECT_EQ(local.get(L"Title").text(), L"Local");
}

TEST_F(NotesDatabase, ObjectForNoDatabase_CanBeGivenOneByOpen)
{
    const Object empty = database(L"", L"");
    EXPECT_FALSE(empty.get(L"Open", {L"", L"no.nsf"}).isTrue());
    const Object other = database(L"", L"");
    EXPECT_TRUE(other.get(L"Open", {L"", L"local.nsf"}).isTrue());
    EXPECT_NE(failureOf([&] { other.get(L"Open", {L"", L"elsewhere.nsf"}); }).code(), S_OK);
}

TEST_F(NotesDatabase, View_IsFoundByNameOrAliasWithoutCase_ElseNothing)
{
    EXPECT_EQ(view(L"PEOPLE").get(L"Name").text(), L"People");
    EXPECT_EQ(view(L"byname").get(L"Name").text(), L"People");
    EXPECT_EQ(view(L"($phones)").get(L"Name").text(), L"($Phones)");
    EXPECT_FALSE(view(L"$Phones")) << "a hidden one has its parentheses";
    EXPECT_FALSE(view(L"People|ByName"));
    EXPECT_FALSE(view(L""));
}

TEST_F(NotesDatabase, Document_IsFoundByItsIdentifiers)
{
    const Object marc = person(L"Durand");
    const std::wstring id = marc.get(L"NoteID").text();
    EXPECT_EQ(id, L"8F6");
    EXPECT_EQ(first(contacts().get(L"GetDocumentByID", {id}).object(), L"FirstName").text(), L"Marc");
    EXPECT_EQ(first(contacts().get(L"GetDocumentByID", {L"000008f6"}).object(), L"FirstName").text(), L"Marc");
    EXPECT_FALSE(contacts().get(L"GetDocumentByID", {L"FFFF"}).object());
    EXPECT_FALSE(contacts().get(L"GetDocumentByID", {L"xyz"}).object());
    EXPECT_FALSE(contacts().get(L"GetDocumentByID", {L"0"}).object());
    const std::wstring universal = marc.get(L"UniversalID").text();
    EXPECT_EQ(universal.size(), 32u);
    EXPECT_EQ(first(contacts().get(L"GetDocumentByUNID", {universal}).object(), L"FirstName").text(), L"Marc");
    EXPECT_EQ(failureOf([&] { contacts().get(L"GetDocumentByUNID", {L"00"}); }).description(), L"Invalid universal id");
}

TEST_F(NotesDatabase, NoteIds_MeetInDifferentDatabases_UniversalOnesDoNot)
{
    const Object local = database(L"", L"local.nsf").get(L"GetDocumentByID", {L"8F6"}).object();
    EXPECT_EQ(first(local, L"LastName").text(), L"Zola");
    EXPECT_NE(local.get(L"UniversalID").text(), person(L"Durand").get(L"UniversalID").text());
}

TEST_F(NotesDatabase, LastModified_IsTheWholeSecondOfTheLastSaveOrDeletion)
{
    const Object found = database(L"", L"local.nsf");
    const auto inSeconds = [&] { return found.get(L"LastModified").asDate() * 86'400; };
    const std::wstring id = notes.ask(L"add local.nsf\nForm=Person");
    double last = inSeconds();
    EXPECT_NEAR(last, std::round(last), 0.01);
    for (const std::wstring& request : {L"change " + id + L"\nForm=Memo", L"delete " + id}) {
        Sleep(1100);
        notes.ask(request);
        EXPECT_GT(inSeconds(), last + 0.5) << desk::utf8(request);
        last = inSeconds();
    }
    notes.ask(L"modified local.nsf 2023-03-15 12:00:00");
    notes.ask(L"add local.nsf\nForm=Person");
    EXPECT_EQ(found.get(L"LastModified").asDate(), 45000.5);
}
