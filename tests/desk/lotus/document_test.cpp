#include "notes_fixture.h"

namespace {

using automation::Object;
using automation::Value;
using automation::elementsOf;

class NotesDocument : public NotesFixture {
protected:
    Object newDocument() { return contacts().get(L"CreateDocument").object(); }

    static Value firstOf(const Value& array) { return elementsOf(array).at(0); }

    // The texts of a document's values of that name, with | between them.
    static std::wstring values(const Object& document, const wchar_t* item)
    {
        std::wstring text;
        for (const Value& value : elementsOf(document.get(L"GetItemValue", {item}))) text += value.text() + L"|";
        return text;
    }

    std::wstring stored(const wchar_t* id, const wchar_t* field)
    {
        for (const desk::StoreRecord& record : desk::parseStore(notes.ask(L"documents books\\contacts.nsf")))
            if (*record.find(L"@NoteID") == id) return record.find(field) ? *record.find(field) : L"(none)";
        return L"(no document)";
    }
};

const Value nothing = Object();

}

TEST_F(NotesDocument, ItemValue_IsAnArrayAlsoOfOne)
{
    const Object marc = person(L"Durand");
    const Value value = marc.get(L"GetItemValue", {L"lastNAME"});
    EXPECT_EQ(value.type(), VT_ARRAY | VT_VARIANT);
    LONG lower = -1;
    SafeArrayGetLBound(V_ARRAY(&value.variant()), 1, &lower);
    EXPECT_EQ(lower, 0);
    EXPECT_EQ(elementsOf(value).size(), 1u);
    EXPECT_EQ(firstOf(value).type(), VT_BSTR);
    EXPECT_EQ(firstOf(value).text(), L"Durand");
    EXPECT_EQ(values(person(L"Abel"), L"Phone"), L"+33-1.42|0699|");
}

TEST_F(NotesDocument, ItemValues_HaveTheTypeOfTheItem)
{
    const Object marc = person(L"Durand");
    EXPECT_EQ(first(marc, L"Age").type(), VT_R8);
    EXPECT_EQ(first(marc, L"Age").number(), 35.0);
    EXPECT_EQ(first(marc, L"Born").type(), VT_DATE);
    EXPECT_EQ(desk::isoText(first(marc, L"Born").asDate()), L"1980-02-29 00:00:00");
    EXPECT_EQ(first(person(L"Abel"), L"Body").text(), L"two\nlines");
}

TEST_F(NotesDocument, MissingItem_IsAnArrayWithAnEmptyText_OrATextAlone)
{
    const Object marc = person(L"Durand");
    EXPECT_EQ(values(marc, L"Nowhere"), L"|");
    EXPECT_EQ(first(marc, L"Nowhere").type(), VT_BSTR);
    notes.ask(L"missing text");
    EXPECT_EQ(marc.get(L"GetItemValue", {L"Nowhere"}).type(), VT_BSTR);
    EXPECT_EQ(marc.get(L"Nowhere").type(), VT_BSTR);
    EXPECT_EQ(values(marc, L"LastName"), L"Durand|");
    notes.ask(L"missing array");
    EXPECT_EQ(values(marc, L"Nowhere"), L"|");
}

TEST_F(NotesDocument, UnknownMember_IsAnItem)
{
    const Object marc = person(L"Durand");
    EXPECT_EQ(firstOf(marc.get(L"LastName")).text(), L"Durand");
    EXPECT_EQ(firstOf(marc.get(L"LASTNAME")).text(), L"Durand");
    EXPECT_EQ(firstOf(marc.get(L"Nowhere")).text(), L"");
    EXPECT_EQ(marc.get(L"LastName", {std::int32_t{0}}).text(), L"Durand") << "one of its values";
    EXPECT_EQ(failureOf([&] { marc.get(L"LastName", {std::int32_t{1}}); }).code(), DISP_E_BADINDEX);
    marc.put(L"City", L"Paris");
    EXPECT_EQ(values(marc, L"city"), L"Paris|");
    EXPECT_TRUE(marc.get(L"HasItem", {L"CITY"}).isTrue());
    EXPECT_EQ(failureOf([&] { marc.call(L"City"); }).code(), DISP_E_MEMBERNOTFOUND) << "no method";
}

TEST_F(NotesDocument, ItemPropertyCalls_AreRecordedAsTheClientSpellsThem)
{
    const Object marc = person(L"Durand");
    notes.recorder().clear();
    marc.put(L"Form", L"Person");
    marc.get(L"Form");
    EXPECT_EQ(notes.recorder().record(), L"NotesDocument.Form lookup\nNotesDocument.Form put (BSTR \"Person\")\n"
                                         L"NotesDocument.Form get ()");
}

TEST_F(NotesDocument, ValuesOfAllTypes_MakeItemsOfTheirType)
{
    const Object made = newDocument();
    made.put(L"A", std::int16_t{7});
    made.put(L"B", Value::date(45000.25));
    made.put(L"C", desk::lotus::arrayOf({L"x", L"y"}));
    made.put(L"D", desk::lotus::arrayOf({std::int32_t{1}, std::int16_t{2}}));
    made.put(L"E", L"");
    made.put(L"F", true);
    made.put(L"G", Value());
    EXPECT_EQ(first(made, L"A").type(), VT_R8);
    EXPECT_EQ(first(made, L"B").type(), VT_DATE);
    EXPECT_EQ(values(made, L"C"), L"x|y|");
    EXPECT_EQ(values(made, L"D"), L"1|2|");
    EXPECT_EQ(values(made, L"E"), L"|");
    EXPECT_EQ(first(made, L"F").number(), -1.0);
    EXPECT_EQ(values(made, L"G"), L"|");
    EXPECT_EQ(failureOf([&] { made.put(L"H", nothing); }).code(), DISP_E_TYPEMISMATCH);
    made.get(L"Save", {true, false});
    EXPECT_EQ(stored(L"902", L"A:number"), L"7");
    EXPECT_EQ(stored(L"902", L"B:date"), L"2023-03-15 06:00:00");
    EXPECT_EQ(stored(L"902", L"C+"), L"y");
}

TEST_F(NotesDocument, Append_MakesASecondItem_OfWhichReadsSeeTheFirst)
{
    const Object marc = person(L"Durand");
    const Object item = marc.get(L"AppendItemValue", {L"Phone", L"0499"}).object();
    EXPECT_EQ(item.get(L"Text").text(), L"0499");
    EXPECT_EQ(values(marc, L"Phone"), L"0612345678|");
    EXPECT_EQ(marc.get(L"GetFirstItem", {L"Phone"}).object().get(L"Text").text(), L"0612345678");
    marc.get(L"Save", {true, false});
    const std::wstring dump = notes.ask(L"documents");
    EXPECT_LT(dump.find(L"Phone=0612345678\n"), dump.find(L"Phone=0499\n"));
    EXPECT_EQ(values(person(L"Durand"), L"Phone"), L"0612345678|");
    marc.get(L"ReplaceItemValue", {L"phone", L"0123"});
    EXPECT_EQ(values(marc, L"Phone"), L"0123|");
    marc.call(L"RemoveItem", {L"Phone"});
    EXPECT_FALSE(marc.get(L"HasItem", {L"Phone"}).isTrue()) << "all of them were replaced by one";
}

TEST_F(NotesDocument, Remove_TakesAllItemsOfTheName_AndAMissingOneIsNoError)
{
    const Object marc = person(L"Durand");
    marc.get(L"AppendItemValue", {L"Phone", L"0499"});
    marc.call(L"RemoveItem", {L"PHONE"});
    EXPECT_FALSE(marc.get(L"HasItem", {L"Phone"}).isTrue());
    marc.call(L"RemoveItem", {L"Phone"});
}

TEST_F(NotesDocument, NewDocument_HasNoNoteIdUntilItIsSaved)
{
    const Object made = newDocument();
    EXPECT_EQ(made.get(L"NoteID").text(), L"0");
    EXPECT_TRUE(made.get(L"IsNewNote").isTrue());
    EXPECT_FALSE(made.get(L"IsDeleted").isTrue());
    made.put(L"Form", L"Person");
    EXPECT_EQ(notes.changes(), 0);
    const Value saved = made.get(L"Save", {true, false});
    EXPECT_EQ(saved.type(), VT_BOOL);
    EXPECT_TRUE(saved.isTrue());
    EXPECT_EQ(notes.changes(), 1);
    EXPECT_EQ(made.get(L"NoteID").text(), L"902");
    EXPECT_FALSE(made.get(L"IsNewNote").isTrue());
    EXPECT_EQ(made.get(L"ParentDatabase").object().get(L"Title").text(), L"Contacts");
    EXPECT_EQ(stored(L"902", L"Form"), L"Person");
}

TEST_F(NotesDocument, Reference_SeesOnlyItsOwnChanges_UntilTheyAreSaved)
{
    const Object one = person(L"Durand");
    const Object other = person(L"Durand");
    one.put(L"City", L"Paris");
    EXPECT_EQ(values(other, L"City"), L"|");
    EXPECT_EQ(stored(L"8F6", L"City"), L"(none)");
    one.get(L"Save", {true, false});
    EXPECT_EQ(values(other, L"City"), L"|") << "it is as it was opened";
    EXPECT_EQ(values(person(L"Durand"), L"City"), L"Paris|");
}

TEST_F(NotesDocument, SavedBySomebodyElseMeanwhile_ArgumentsDecide)
{
    const Object forced = person(L"Durand");
    const Object refused = person(L"Durand");
    const Object conflict = person(L"Durand");
    notes.ask(L"change 8F6@books\\contacts.nsf\nCity=Rome");
    refused.put(L"City", L"Oslo");
    EXPECT_FALSE(refused.get(L"Save", {false, false}).isTrue());
    EXPECT_EQ(stored(L"8F6", L"City"), L"Rome");
    conflict.put(L"City", L"Bern");
    EXPECT_TRUE(conflict.get(L"Save", {false, true}).isTrue());
    EXPECT_EQ(stored(L"8F6", L"City"), L"Rome");
    EXPECT_EQ(stored(L"902", L"City"), L"Bern");
    EXPECT_EQ(stored(L"902", L"$Ref"), forced.get(L"UniversalID").text());
    EXPECT_TRUE(conflict.get(L"IsResponse").isTrue());
    EXPECT_EQ(conflict.get(L"ParentDocumentUNID").text(), forced.get(L"UniversalID").text());
    EXPECT_EQ(conflict.get(L"NoteID").text(), L"902");
    forced.put(L"City", L"Paris");
    EXPECT_TRUE(forced.get(L"Save", {true, true}).isTrue());
    EXPECT_EQ(stored(L"8F6", L"City"), L"Paris");
}

TEST_F(NotesDocument, Save_NeedsItsTwoArguments)
{
    const Object made = newDocument();
    EXPECT_EQ(failureOf([&] { made.get(L"Save"); }).code(), DISP_E_BADPARAMCOUNT);
    EXPECT_TRUE(made.get(L"Save", {true, false, true}).isTrue());
}

TEST_F(NotesDocument, RemovedDocument_CannotBeUsedThroughThatReference)
{
    const Object marc = person(L"Durand");
    EXPECT_TRUE(marc.get(L"Remove", {true}).isTrue());
    EXPECT_TRUE(marc.get(L"IsDeleted").isTrue());
    EXPECT_FALSE(person(L"Durand"));
    for (const wchar_t* member : {L"NoteID", L"LastName", L"ParentDatabase"})
        EXPECT_EQ(failureOf([&] { marc.get(member); }).description(), L"Notes error: Document has been deleted");
    EXPECT_EQ(failureOf([&] { marc.put(L"City", L"x"); }).code(), static_cast<HRESULT>(0x800A0000 + 4000));
    EXPECT_EQ(failureOf([&] { marc.get(L"Save", {true, false}); }).description(),
              L"Notes error: Document has been deleted");
}

TEST_F(NotesDocument, DeletedBySomebodyElse_CanBeReadButNotSaved)
{
    const Object marc = person(L"Durand");
    notes.ask(L"delete 8F6@books\\contacts.nsf");
    EXPECT_EQ(values(marc, L"LastName"), L"Durand|");
    EXPECT_TRUE(marc.get(L"IsDeleted").isTrue());
    EXPECT_EQ(failureOf([&] { marc.get(L"Save", {true, false}); }).description(),
              L"Notes error: Document has been deleted");
    EXPECT_NE(failureOf([&] { marc.get(L"Remove", {true}); }).code(), S_OK);
}

TEST_F(NotesDocument, RemoveWithoutForce_SparesWhatSomebodyElseHasSaved)
{
    const Object marc = person(L"Durand");
    notes.ask(L"change 8F6@books\\contacts.nsf\nCity=Rome");
    EXPECT_FALSE(marc.get(L"Remove", {false}).isTrue());
    EXPECT_TRUE(person(L"Durand"));
    EXPECT_TRUE(marc.get(L"RemovePermanently", {true}).isTrue());
    EXPECT_FALSE(person(L"Durand"));
}

TEST_F(NotesDocument, ReloadedStore_LeavesOldReferencesAlone)
{
    const Object marc = person(L"Durand");
    notes.load(books);
    EXPECT_EQ(values(marc, L"LastName"), L"Durand|");
    marc.put(L"LastName", L"Elsewhere");
    EXPECT_TRUE(marc.get(L"Save", {true, false}).isTrue());
    EXPECT_TRUE(person(L"Durand")) << "the new ones are others";
}

TEST_F(NotesDocument, Item_TellsItsNameTypeAndValues)
{
    const Object marc = person(L"Durand");
    const Object name = marc.get(L"GetFirstItem", {L"lastname"}).object();
    EXPECT_EQ(name.get(L"Name").text(), L"LastName");
    EXPECT_EQ(name.get(L"Type").int32(), 1280);
    EXPECT_EQ(firstOf(name.get(L"Values")).text(), L"Durand");
    EXPECT_EQ(marc.get(L"GetFirstItem", {L"Age"}).object().get(L"Type").int32(), 768);
    EXPECT_EQ(marc.get(L"GetFirstItem", {L"Age"}).object().get(L"Text").text(), L"35");
    EXPECT_EQ(marc.get(L"GetFirstItem", {L"Born"}).object().get(L"Type").int32(), 1024);
    EXPECT_FALSE(marc.get(L"GetFirstItem", {L"Nowhere"}).object());
    const Object ann = person(L"Abel");
    EXPECT_EQ(ann.get(L"GetFirstItem", {L"Phone"}).object().get(L"Text").text(), L"+33-1.42;0699");
    EXPECT_EQ(ann.get(L"GetFirstItem", {L"Body"}).object().get(L"Values").type(), VT_BSTR) << "rich text is one text";
    EXPECT_EQ(ann.get(L"GetFirstItem", {L"Body"}).object().get(L"Type").int32(), 1);
    EXPECT_EQ(elementsOf(marc.get(L"Items")).size(), 7u);
}

TEST_F(NotesDocument, ItemsValues_CanBeSet_AndAnItemCopied)
{
    const Object marc = person(L"Durand");
    const Object name = marc.get(L"GetFirstItem", {L"LastName"}).object();
    name.put(L"Values", desk::lotus::arrayOf({L"Dupont", L"Durand"}));
    EXPECT_EQ(values(marc, L"LastName"), L"Dupont|Durand|");
    const Object made = newDocument();
    made.get(L"ReplaceItemValue", {L"Names", name});
    EXPECT_EQ(values(made, L"Names"), L"Dupont|Durand|");
    name.call(L"Remove");
    EXPECT_FALSE(marc.get(L"HasItem", {L"LastName"}).isTrue());
}
