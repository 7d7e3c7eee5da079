#include "desk_lotus/notes_fixture.h"

namespace {

using automation::Object;
using automation::Value;

using SessionTest = NotesTest;

}

TEST_F(SessionTest, CreatedByName_ItIsTheSameNotes)
{
    const Object created = Object::create(L"Notes.NotesSession");
    EXPECT_EQ(created.get(L"CommonUserName").text(), L"Anna Keller");
    const Object workspaceObject = Object::create(L"Notes.NotesUIWorkspace");
    EXPECT_FALSE(workspaceObject.get(L"CurrentDocument").object());
}

TEST_F(SessionTest, User_IsKnownByBothNames)
{
    EXPECT_EQ(session().get(L"username").text(), L"CN=Anna Keller/OU=Paris/O=Acme");
    EXPECT_EQ(session().get(L"COMMONUSERNAME").text(), L"Anna Keller");
    EXPECT_EQ(session().get(L"Platform").text(), L"Windows/32");
    EXPECT_FALSE(session().get(L"CurrentDatabase").object());
}
