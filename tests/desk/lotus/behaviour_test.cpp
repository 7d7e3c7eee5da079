// What real clients do in one installation and not in another.
#include "notes_fixture.h"

#include "automation/error.h"

namespace {

using automation::Object;

class NotesBehaviour : public NotesFixture {
protected:
    VARTYPE typeOf(const wchar_t* item) { return person(L"Durand").get(L"GetItemValue", {item}).type(); }

    Object local() { return session().get(L"GetDatabase", {L"", L"local.nsf"}).object(); }
};

// A database with a full-text index, a view of all and one document.
class StaleIndex : public NotesFixture {
protected:
    StaleIndex()
    {
        notes.load(L"[database]\nFile=i.nsf\nFullTextIndex=True\n[view]\nName=All\n[document]\nWord=old\n");
        notes.ask(L"index i.nsf stale");
    }

    int hits(const wchar_t* word)
    {
        const Object database = session().get(L"GetDatabase", {L"", L"i.nsf"}).object();
        const Object view = database.get(L"GetView", {L"All"}).object();
        return view.get(L"FTSearch", {L"[Word] CONTAINS \"" + std::wstring(word) + L"\"", 0}).int32();
    }
};

}

TEST_F(NotesBehaviour, Arrays_AreOfVariants_OrOfTextsAndOfDoubles)
{
    EXPECT_EQ(typeOf(L"LastName"), VT_ARRAY | VT_VARIANT);
    notes.ask(L"arrays typed");
    EXPECT_EQ(typeOf(L"LastName"), VT_ARRAY | VT_BSTR);
    EXPECT_EQ(typeOf(L"Age"), VT_ARRAY | VT_R8);
    EXPECT_EQ(typeOf(L"Born"), VT_ARRAY | VT_VARIANT);
    EXPECT_EQ(typeOf(L"Nowhere"), VT_ARRAY | VT_BSTR);
    EXPECT_EQ(first(person(L"Durand"), L"Age").text(), L"35");
    EXPECT_EQ(first(person(L"Durand"), L"LastName").text(), L"Durand");
    notes.ask(L"arrays variant");
    EXPECT_EQ(typeOf(L"Age"), VT_ARRAY | VT_VARIANT);
}

TEST_F(NotesBehaviour, ServerName_IsAnUnknownName_WhereTheClassHasNone)
{
    EXPECT_EQ(session().get(L"ServerName").text(), L"");
    notes.ask(L"server-name off");
    EXPECT_EQ(failureOf([this] { session().get(L"servername"); }).code(), DISP_E_UNKNOWNNAME);
    notes.ask(L"server-name on");
    EXPECT_EQ(session().get(L"ServerName").text(), L"");
}

TEST_F(NotesBehaviour, Identifiers_AreTheClasss_OrEachObjectsOwn)
{
    const auto idOf = [](const Object& object, std::wstring name) {
        DISPID id = DISPID_UNKNOWN;
        LPOLESTR text = name.data();
        object.dispatch()->GetIDsOfNames(IID_NULL, &text, 1, 0, &id);
        return id;
    };
    EXPECT_EQ(idOf(person(L"Durand"), L"GetItemValue"), idOf(person(L"Abel"), L"GetItemValue"));
    notes.ask(L"identifiers own");
    const Object durand = person(L"Durand");
    const Object other = person(L"Abel");
    EXPECT_NE(idOf(durand, L"GetItemValue"), idOf(other, L"GetItemValue"));
    EXPECT_NE(idOf(durand, L"LastName"), idOf(other, L"LastName")) << "an item";
    EXPECT_EQ(first(durand, L"LastName").text(), L"Durand");
    EXPECT_EQ(automation::elementsOf(other.get(L"FullName")).at(0).text(), L"Ann Abel");
    durand.put(L"LastName", L"Martin");
    EXPECT_EQ(first(durand, L"LastName").text(), L"Martin");
}

TEST_F(NotesBehaviour, PathOfALocalDatabase_IsCompleteBelowTheDataFolder_WhileItIsOpen)
{
    EXPECT_EQ(local().get(L"FilePath").text(), L"local.nsf");
    notes.ask(L"data-folder C:\\Notes\\Data");
    EXPECT_EQ(local().get(L"FilePath").text(), L"C:\\Notes\\Data\\local.nsf");
    EXPECT_EQ(local().get(L"FileName").text(), L"local.nsf");
    EXPECT_EQ(contacts().get(L"FilePath").text(), L"books\\contacts.nsf");
    EXPECT_TRUE(session().get(L"GetDatabase", {L"", L"c:\\notes\\data\\LOCAL.nsf"}).object().get(L"IsOpen").isTrue());
    notes.ask(L"available local.nsf off");
    EXPECT_EQ(local().get(L"FilePath").text(), L"local.nsf");
}

TEST_F(NotesBehaviour, Settings_AreKeptInTheStore)
{
    for (const wchar_t* request :
         {L"arrays typed", L"server-name off", L"data-folder C:\\Data", L"missing text", L"identifiers own"})
        notes.ask(request);
    notes.load(desk::storeText(notes.model().records()));
    EXPECT_TRUE(notes.model().behaviour.typedArrays);
    EXPECT_FALSE(notes.model().behaviour.hasServerName);
    EXPECT_FALSE(notes.model().behaviour.missingItemIsArray);
    EXPECT_TRUE(notes.model().behaviour.ownIdentifiers);
    EXPECT_EQ(notes.model().behaviour.dataFolder, L"C:\\Data");
}

TEST_F(StaleIndex, NewDocument_IsNoHit_UntilTheUpdate)
{
    notes.ask(L"add i.nsf\nWord=new");
    EXPECT_EQ(hits(L"new"), 0);
    EXPECT_EQ(hits(L"old"), 1);
    notes.ask(L"index i.nsf updated");
    EXPECT_EQ(hits(L"new"), 1);
}

TEST_F(StaleIndex, ChangedDocument_IsHitByItsFormerWords)
{
    notes.ask(L"change 8F6@i.nsf\nWord=new");
    EXPECT_EQ(hits(L"new"), 0);
    EXPECT_EQ(hits(L"old"), 1);
}

TEST_F(StaleIndex, DeletedDocument_IsNoHit)
{
    notes.ask(L"delete 8F6@i.nsf");
    EXPECT_EQ(hits(L"old"), 0);
}
