#include "automation/enumeration.h"
#include "mailbox_fixture.h"

namespace {

using automation::Object;
using automation::Value;

constexpr const wchar_t* three = L"[contact]\nFullName=Ann Abel\n[contact]\nFullName=Bob Baker\n"
                                 L"[contact]\nFullName=Cy Cole\n";

class OutlookItems : public MailboxFixture {
protected:
    static std::wstring name(const Value& item) { return item.object() ? item.object().get(L"FullName").text() : L"-"; }
};

}

TEST_F(OutlookItems, GetFirstAndGetNext_WalkInTheOrderOfCreation_ThenGiveNothing)
{
    outlook.load(three);
    const Object all = items(olContacts);
    EXPECT_EQ(all.get(L"Count").int32(), 3);
    EXPECT_EQ(name(all.get(L"GetFirst")), L"Ann Abel");
    EXPECT_EQ(name(all.get(L"GetNext")), L"Bob Baker");
    EXPECT_EQ(name(all.get(L"GetNext")), L"Cy Cole");
    EXPECT_EQ(name(all.get(L"GetNext")), L"-");
    EXPECT_EQ(name(all.get(L"GetNext")), L"-");
    EXPECT_EQ(name(all.get(L"GetPrevious")), L"Cy Cole");
    EXPECT_EQ(name(all.get(L"GetFirst")), L"Ann Abel") << "GetFirst starts again";
    EXPECT_EQ(name(all.get(L"GetLast")), L"Cy Cole");
}

TEST_F(OutlookItems, EachCollection_HasACursorOfItsOwn)
{
    outlook.load(three);
    const Object contacts = folder(olContacts);
    contacts.get(L"Items").object().get(L"GetFirst");
    EXPECT_EQ(name(contacts.get(L"Items").object().get(L"GetNext")), L"Ann Abel");
    const Object one = contacts.get(L"Items").object();
    const Object other = contacts.get(L"Items").object();
    one.get(L"GetFirst");
    one.get(L"GetNext");
    EXPECT_EQ(name(other.get(L"GetFirst")), L"Ann Abel");
    EXPECT_EQ(name(one.get(L"GetNext")), L"Cy Cole");
}

TEST_F(OutlookItems, ItemByNumber_CountsFromOne_AndRefusesOthers)
{
    outlook.load(three);
    const Object all = items(olContacts);
    EXPECT_EQ(name(all.get(L"Item", {std::int16_t{2}})), L"Bob Baker");
    EXPECT_EQ(name(all.get(L"Item", {L"cy cole"})), L"Cy Cole");
    for (const std::int32_t number : {0, 4, -1}) {
        const auto error = failureOf([&] { all.get(L"Item", {number}); });
        EXPECT_EQ(error.description(), L"Array index out of bounds.") << number;
        EXPECT_EQ(error.source(), L"Microsoft Outlook");
    }
    EXPECT_EQ(failureOf([&] { all.get(L"Item", {L"Nobody"}); }).code(), static_cast<HRESULT>(0x8004010FL));
}

TEST_F(OutlookItems, ForEach_GivesEveryItem)
{
    outlook.load(three);
    automation::Enumeration each(items(olContacts));
    std::wstring names;
    for (Value item; each.next(item);) names += name(item) + L";";
    EXPECT_EQ(names, L"Ann Abel;Bob Baker;Cy Cole;");
}

TEST_F(OutlookItems, Add_TakesTheFoldersTypeOrTheGivenOne)
{
    EXPECT_EQ(items(olContacts).get(L"Add").object().get(L"Class").int32(), 40);
    EXPECT_EQ(items(olJournal).get(L"Add").object().get(L"MessageClass").text(), L"IPM.Activity");
    EXPECT_EQ(items(olContacts).get(L"Add", {std::int16_t{7}}).object().get(L"Class").int32(), 69);
    EXPECT_EQ(items(olContacts).get(L"Add", {L"IPM.DistList"}).object().get(L"Class").int32(), 69);
    EXPECT_EQ(failureOf([&] { items(olContacts).get(L"Add", {std::int16_t{99}}); }).code(), E_INVALIDARG);
}

TEST_F(OutlookItems, AddedItem_IsInTheFolderOnlyOnceSaved)
{
    const Object all = items(olContacts);
    const Object contact = all.get(L"Add").object();
    contact.put(L"FullName", L"New One");
    EXPECT_EQ(all.get(L"Count").int32(), 0);
    contact.call(L"Save");
    EXPECT_EQ(all.get(L"Count").int32(), 1);
    EXPECT_EQ(name(all.get(L"GetFirst")), L"New One");
}

TEST_F(OutlookItems, TenThousandContacts_AreWalkedToTheLast)
{
    std::wstring store;
    for (int number = 0; number < 10'000; ++number)
        store += L"[contact]\nFullName=Person " + std::to_wstring(number) + L"\n";
    outlook.load(store);
    const Object all = items(olContacts);
    int seen = 0;
    for (Object item = all.get(L"GetFirst").object(); item; item = all.get(L"GetNext").object()) ++seen;
    EXPECT_EQ(seen, 10'000);
    EXPECT_EQ(name(all.get(L"Find", {L"[FullName] = 'person 9999'"})), L"Person 9999");
}

TEST_F(OutlookItems, WrongCountsAndNames_AreAnsweredAsAServerDoes)
{
    const Object all = items(olContacts);
    EXPECT_EQ(failureOf([&] { all.get(L"GetFirst", {std::int32_t{1}}); }).code(), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(failureOf([&] { all.get(L"Item"); }).code(), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(failureOf([&] { outlook.application().get(L"CreateItem", {L"abc"}); }).code(), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(failureOf([&] { all.get(L"Nonsense"); }).code(), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(failureOf([&] { all.put(L"Count", std::int32_t{1}); }).code(), DISP_E_MEMBERNOTFOUND);
}

TEST_F(OutlookItems, IdentifiersThatHaveMoved_AreFoundByName_AndMeanOthersByNumber)
{
    outlook.load(L"[contact]\nFullName=Marc Durand\n");
    const auto idOf = [](const Object& object, const wchar_t* name) {
        auto names = const_cast<LPOLESTR>(name);
        DISPID id = DISPID_UNKNOWN;
        object.dispatch()->GetIDsOfNames(IID_NULL, &names, 1, 0, &id);
        return id;
    };
    const Object contacts = items(olContacts);
    const DISPID find = idOf(contacts, L"Find");
    EXPECT_EQ(outlook.ask(L"identifiers 4"), L"ok");
    EXPECT_EQ(idOf(contacts, L"GetFirst"), find) << "Find is four rows behind GetFirst";
    EXPECT_EQ(contacts.get(find).object().get(L"FullName").text(), L"Marc Durand");
    EXPECT_TRUE(items(olContacts).get(L"Find", {L"[FullName] = 'Marc Durand'"}).object());
}
