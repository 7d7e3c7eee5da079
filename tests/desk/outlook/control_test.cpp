#include "mailbox_fixture.h"

#include <stdexcept>

namespace {

using automation::Object;

class OutlookControl : public MailboxFixture {};

}

TEST_F(OutlookControl, Dump_HoldsExactlyWhatWasSaved)
{
    const Object entry = items(olJournal).get(L"Add").object();
    entry.put(L"Subject", L"Call with Marc");
    entry.put(L"Start", automation::Value::date(desk::dateFromIso(L"2023-03-15 06:00:00")));
    entry.put(L"Duration", std::int32_t{5});
    entry.put(L"Companies", L"Pavex");
    entry.put(L"Body", L"one\r\ntwo \\ three");
    entry.get(L"Recipients").object().call(L"Add", {L"Marc Durand"});
    entry.call(L"Close", {std::int16_t{0}});
    EXPECT_EQ(outlook.ask(L"journal"), L"[journal]\n"
                                       L"EntryID=000000008F3A61C45D2E4B7A9C10E2D7B5F4A38600200004\n"
                                       L"Subject=Call with Marc\n"
                                       L"Type=Phone call\n"
                                       L"Start=2023-03-15 06:00:00\n"
                                       L"End=2023-03-15 06:05:00\n"
                                       L"Duration=5\n"
                                       L"Companies=Pavex\n"
                                       L"Body=one\\r\\ntwo \\\\ three\n"
                                       L"Recipient=Marc Durand\n");
}

TEST_F(OutlookControl, Store_ComesBackTheSame)
{
    const std::wstring store = L"[outlook]\nVersion=2007\n\n"
                               L"[mail]\nEntryID=AB\nSubject=Re: it\nTo=a@x.example\nFolder=6\n\n"
                               L"[contact]\nEntryID=CD\nSubject=Marc Durand\nFirstName=Marc\nLastName=Durand\n"
                               L"FullName=Marc Durand\nFileAs=The Boss\nBirthday=1970-01-02 00:00:00\n\n"
                               L"[journal]\nEntryID=EF\nSubject=Call\nType=Fax\nStart=2023-03-15 06:00:10\n"
                               L"End=2023-03-15 06:05:20\nDuration=5\nUnRead=True\n";
    outlook.load(store);
    EXPECT_EQ(desk::storeText(outlook.model().records()), store);
}

TEST_F(OutlookControl, BadStores_AreRefusedAndChangeNothing)
{
    outlook.load(L"[contact]\nFullName=Marc Durand\n");
    const std::pair<const wchar_t*, const char*> bad[] = {
        {L"[contact]\nShoeSize=43\n", "line 1: [contact] has no field \"ShoeSize\""},
        {L"\n[potato]\n", "line 2: [potato] is no kind of item"},
        {L"[journal]\nStart=soon\n", "line 1: [journal] Start: \"soon\" is no date of the form 2023-03-15 06:00:00"},
        {L"[contact]\nEntryID=A\n[contact]\nEntryID=A\n", "line 3: [contact] the EntryID is used twice"},
        {L"[contact]\nFolder=99\n", "line 1: [contact] there is no such folder"},
        {L"[outlook]\nVersion=95\n", "\"95\" is none of the versions 2003, 2007, 2016"},
        {L"[outlook]\nGuard=perhaps\n", "\"perhaps\" is none of off, allow [MS], deny [HRESULT]"},
        {L"[outlook]\nRowOrder=any\n", "\"any\" is none of folder, reversed"},
        {L"[outlook]\nArrayShape=round\n", "\"round\" is none of columns, rows"},
        {L"[outlook]\nMissingCell=hole\n", "\"hole\" is none of empty, null, notfound"},
        {L"[outlook]\nCreation=slowly\n", "\"slowly\" is none of works, fails [MS]"},
        {L"[outlook]\nColour=blue\n", "[outlook] has no setting \"Colour\""},
    };
    for (const auto& [store, message] : bad) {
        try {
            outlook.load(store);
            ADD_FAILURE() << "accepted: " << message;
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ(error.what(), message);
        }
    }
    EXPECT_EQ(items(olContacts).get(L"Count").int32(), 1);
}

TEST_F(OutlookControl, Windows_AreListedWithKindAndItem)
{
    outlook.load(L"[contact]\nEntryID=AB\nFullName=Marc Durand\n");
    items(olContacts).get(L"GetFirst").object().call(L"Display");
    items(olContacts).get(L"GetFirst").object().call(L"Display");
    const Object entry = items(olJournal).get(L"Add").object();
    entry.put(L"Subject", L"Call");
    entry.call(L"Display", {false});
    const Object mail = outlook.application().get(L"CreateItem", {std::int16_t{0}}).object();
    mail.call(L"Display");
    EXPECT_EQ(outlook.ask(L"windows"), L"Marc Durand - Contact\tcontact\tAB\n"
                                       L"Call - Journal Entry\tjournal\tunsaved\n"
                                       L"Untitled - Message\tmail\tunsaved");
    mail.put(L"Subject", L"Now");
    entry.call(L"Close", {std::int16_t{1}});
    EXPECT_EQ(outlook.ask(L"windows"), L"Marc Durand - Contact\tcontact\tAB\nNow - Message\tmail\tunsaved");
}

TEST_F(OutlookControl, DisplayedButUnsaved_IsMarkedInTheDump)
{
    const Object entry = items(olJournal).get(L"Add").object();
    entry.put(L"Start", automation::Value::date(desk::dateFromIso(L"2023-03-15 06:00:00")));
    EXPECT_EQ(outlook.ask(L"journal"), L"") << "neither saved nor displayed";
    entry.call(L"Display");
    EXPECT_EQ(outlook.ask(L"journal"), L"[journal]\nUnsaved=True\nType=Phone call\nStart=2023-03-15 06:00:00\n"
                                       L"End=2023-03-15 06:00:00\nDuration=0\n");
    EXPECT_EQ(outlook.ask(L"close-windows"), L"ok");
    EXPECT_EQ(outlook.ask(L"journal"), L"");
    EXPECT_EQ(outlook.ask(L"windows"), L"");
}

TEST_F(OutlookControl, SavedWindows_KeepTheirItems)
{
    const Object contact = items(olContacts).get(L"Add").object();
    contact.put(L"FullName", L"Marc Durand");
    contact.call(L"Display");
    EXPECT_EQ(outlook.ask(L"save-windows"), L"ok");
    EXPECT_EQ(outlook.ask(L"windows"), L"");
    EXPECT_EQ(items(olContacts).get(L"Count").int32(), 1);
}

TEST_F(OutlookControl, AddChangeDelete_ActAsTheUser)
{
    const std::wstring id = outlook.ask(L"add contact\nFullName=Marc Durand\nPagerNumber=1");
    EXPECT_EQ(outlook.ask(L"count"), L"0 Inbox\n0 Drafts\n0 Sent Items\n0 Deleted Items\n1 Contacts\n0 Journal");
    EXPECT_EQ(outlook.ask(L"change " + id + L"\nFullName=Ann Abel\nPagerNumber="), L"ok");
    EXPECT_EQ(outlook.ask(L"contacts"), L"[contact]\nEntryID=" + id +
                                            L"\nSubject=Ann Abel\nFirstName=Ann\nLastName=Abel\nFullName=Ann Abel\n"
                                            L"FileAs=Abel, Ann\n");
    EXPECT_EQ(outlook.ask(L"delete " + id), L"ok");
    EXPECT_EQ(outlook.ask(L"contacts"), L"");
    EXPECT_THROW(outlook.ask(L"add potato\nFullName=x"), std::runtime_error);
    EXPECT_THROW(outlook.ask(L"change 00\nBody=x"), std::runtime_error);
}

TEST_F(OutlookControl, Calls_AreRecordedWithKindTypesAndValues)
{
    outlook.load(L"[contact]\nFullName=Marc Durand\n");
    const Object all = items(olContacts);
    outlook.recorder().clear();
    const Object contact = all.get(L"GETFIRST").object();
    contact.put(L"Body", L"a\nb");
    contact.call(L"Close", {std::int16_t{0}});
    EXPECT_EQ(outlook.recorder().record(), L"Items.GETFIRST lookup\n"
                                           L"Items.GetFirst method ()\n"
                                           L"ContactItem.Body lookup\n"
                                           L"ContactItem.Body put (BSTR \"a\\nb\")\n"
                                           L"ContactItem.Close lookup\n"
                                           L"ContactItem.Close method (I2 0)");
    EXPECT_EQ(outlook.recorder().count(L"ContactItem.Body put"), 1u);
}

TEST_F(OutlookControl, PlannedFaults_ReachTheClient)
{
    const Object application = outlook.application();
    outlook.recorder().faults.add(L"on Application.Version raise 0x80004005 Microsoft Outlook|It is broken.");
    EXPECT_EQ(failureOf([&] { application.get(L"Version"); }).description(), L"It is broken.");
    outlook.recorder().faults.add(L"off");
    outlook.recorder().faults.add(L"at 1 fail 0x80004004");
    EXPECT_EQ(failureOf([&] { application.get(L"Name"); }).code(), E_ABORT);
    outlook.recorder().faults.add(L"at 1 busy 2");
    EXPECT_EQ(application.get(L"Version").text().substr(0, 3), L"16.") << "asked again until it is not busy";
    outlook.recorder().faults.add(L"at 1 die");
    EXPECT_EQ(failureOf([&] { application.get(L"Version"); }).code(), HRESULT_FROM_WIN32(RPC_S_CALL_FAILED));
    EXPECT_EQ(failureOf([&] { application.get(L"Version"); }).code(), HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE));
}

TEST_F(OutlookControl, Quit_IsCounted)
{
    outlook.application().call(L"Quit");
    EXPECT_EQ(outlook.quits(), 1);
}

TEST_F(OutlookControl, Settings_ComeBackTheSame_AndOnlyThoseThatAreNotUsual)
{
    const std::wstring store = L"[outlook]\nVersion=2003\nGuard=deny 0x80040102\nMissingCell=null\n"
                               L"LongestText=127\nRowOrder=reversed\nArrayShape=rows\nHiddenColumn="
                               L"EntryID\nIdentifiers=4\nCreation=fails 200\n";
    outlook.load(store);
    EXPECT_EQ(desk::storeText(outlook.model().records()), store);
    for (const wchar_t* usual :
         {L"version 2016", L"guard off", L"missingcell empty", L"longesttext 255", L"roworder folder",
          L"arrayshape columns", L"hiddencolumn ", L"identifiers 0", L"creation works"})
        EXPECT_EQ(outlook.ask(usual), L"ok");
    EXPECT_EQ(desk::storeText(outlook.model().records()), L"");
}

TEST_F(OutlookControl, Typing_OpensTheItem_MasksTelephoneNumbers_AndSavesNothing)
{
    outlook.load(L"[contact]\nEntryID=AB\nFullName=Marc Durand\n");
    EXPECT_EQ(outlook.ask(L"type AB\nHomeTelephoneNumber=2223334444\nCarTelephoneNumber=+12223334444\n"
                          L"OtherTelephoneNumber=+33 1 23\nHobby=2223334444\n"),
              L"ok");
    EXPECT_EQ(outlook.ask(L"windows"), L"Marc Durand - Contact\tcontact\tAB");
    const std::wstring shown = outlook.ask(L"contacts");
    EXPECT_EQ(shown.find(L"HomeTelephoneNumber"), shown.rfind(L"HomeTelephoneNumber")) << "in the unsaved record only";
    EXPECT_NE(shown.find(L"HomeTelephoneNumber=(222) 333-4444\n"), std::wstring::npos);
    EXPECT_NE(shown.find(L"CarTelephoneNumber=+1 (222) 333-4444\n"), std::wstring::npos);
    EXPECT_NE(shown.find(L"OtherTelephoneNumber=+33 1 23\n"), std::wstring::npos);
    EXPECT_NE(shown.find(L"Hobby=2223334444\n"), std::wstring::npos) << "no telephone field";
    EXPECT_THROW(outlook.ask(L"type CD\nHobby=x\n"), std::runtime_error);
    outlook.ask(L"close-windows");
}

TEST_F(OutlookControl, DisplayedItem_IsOneObjectForItsUserAndItsClients)
{
    outlook.load(L"[contact]\nEntryID=AB\nFullName=Marc Durand\n");
    outlook.ask(L"type AB\nHobby=Chess\n");
    const Object contact = items(olContacts).get(L"Find", {L"[FullName] = 'Marc Durand'"}).object();
    EXPECT_EQ(contact.get(L"Hobby").text(), L"Chess") << "what is typed is seen before it is saved";
    EXPECT_FALSE(contact.get(L"Saved").isTrue());
    contact.call(L"Close", {std::int16_t{0}});
    EXPECT_EQ(outlook.ask(L"windows"), L"");
    EXPECT_NE(outlook.ask(L"contacts").find(L"Hobby=Chess\n"), std::wstring::npos);
}
