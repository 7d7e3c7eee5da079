#include "number_search_fixture.h"

#include "lotus/log_document.h"

namespace hublink {

namespace {

using LotusNumberSearch = NumberSearchFixture;

}

TEST_F(LotusNumberSearch, PersonInThePhoneView_IsFound_WithAllNames)
{
    add(L"names.nsf", durand);
    EXPECT_TRUE(search(L"014567"));
    EXPECT_EQ(person.lastName, L"Durand");
    EXPECT_EQ(person.firstName, L"Marc");
    EXPECT_EQ(person.fullName, L"Marc Durand");
    EXPECT_EQ(person.mail, L"marc@acme.fr") << "the first mail item is empty";
    EXPECT_EQ(person.noteId, L"8F6");
    EXPECT_EQ(book.Base, L"names.nsf");
    EXPECT_TRUE(book.PersonalAddressBook);
}

TEST_F(LotusNumberSearch, PhoneView_IsAskedInThisOrder)
{
    add(L"names.nsf", durand);
    search(L"014567");
    EXPECT_EQ(record(),
              (Lines{L"NotesSession.GetDatabase method (BSTR \"\", BSTR \"names.nsf\")",
                     L"NotesDatabase.GetView method (BSTR \"($Phones)\")", keyed(L"014567"),
                     L"NotesDocument.GetItemValue method (BSTR \"LastName\")",
                     L"NotesDocument.GetItemValue method (BSTR \"FirstName\")",
                     L"NotesDocument.GetItemValue method (BSTR \"FullName\")",
                     L"NotesDocument.GetItemValue method (BSTR \"MailAddress\")",
                     L"NotesDocument.GetItemValue method (BSTR \"InternetAddress\")", L"NotesDocument.NoteID get ()"}));
}

TEST_F(LotusNumberSearch, NumberWithDotsAndSpaces_IsLookedUpWithoutThem_ThenUnchanged)
{
    session.LotusAddressBooks.resize(1);
    add(L"names.nsf", L"Form=Person\nLastName=Abel\nOfficePhoneNumber=01.45 67\n");
    EXPECT_TRUE(search(L"01.45 67"));
    EXPECT_EQ(person.lastName, L"Abel");
    EXPECT_EQ(callsTo(L"NotesView."), (Lines{keyed(L"014567"), keyed(L"01.45 67")}));
    add(L"names.nsf", durand);
    forgetCalls();
    EXPECT_TRUE(search(L"01.45 67"));
    EXPECT_EQ(person.lastName, L"Durand");
    EXPECT_EQ(callsTo(L"NotesView."), Lines{keyed(L"014567")});
}

TEST_F(LotusNumberSearch, OtherSeparators_AreKept_AndTheNumberLookedUpOnce)
{
    session.LotusAddressBooks.resize(1);
    EXPECT_FALSE(search(L"+33-(0)145/67"));
    EXPECT_EQ(callsTo(L"NotesView."), Lines{keyed(L"+33-(0)145/67")});
}

TEST_F(LotusNumberSearch, BookWithAPhoneView_NeverUsesFullText)
{
    session.LotusAddressBooks.resize(1);
    add(L"names.nsf", L"Form=Person\nLastName=Abel\nCellPhoneNumber=0612\n");
    EXPECT_FALSE(search(L"0612"));
    EXPECT_EQ(calls(L"NotesView.FTSearch method"), 0u);
    EXPECT_EQ(calls(L"NotesDatabase.GetView method"), 1u);
}

TEST_F(LotusNumberSearch, BookWithAMainViewOnly_IsSearchedByFullText_ForOneDocument)
{
    session.LotusAddressBooks[1].PhoneNumber = {L"Phone", L"Mobile"};
    add(company, L"Form=Employee\nName=Zola\nGivenName=Emile\nMobile=0612\n");
    add(company, L"Form=Employee\nName=Other\nPhone=0612\n");
    EXPECT_TRUE(search(L"06.12"));
    EXPECT_EQ(person.lastName, L"Other") << "the first of the view";
    EXPECT_EQ(callsTo(L"NotesView.").back(), L"NotesView.GetFirstDocument method ()");
    EXPECT_EQ(callsTo(L"NotesView.FTSearch"), Lines{L"NotesView.FTSearch method (BSTR \"[Phone] CONTAINS \"0612\" OR "
                                                    L"[Mobile] CONTAINS \"0612\"\", I2 1)"});
    EXPECT_EQ(callsTo(L"NotesDatabase.GetView").back(), L"NotesDatabase.GetView method (BSTR \"Staff\")");
    EXPECT_EQ(book.Base, L"books\\company.nsf");
}

TEST_F(LotusNumberSearch, FullText_IsAskedForTheNumberWithoutSeparators_ThenUnchanged)
{
    add(company, L"Form=Employee\nName=Zola\nPhone=06.12 34\n");
    EXPECT_TRUE(search(L"06.12 34"));
    EXPECT_EQ(callsTo(L"NotesView.FTSearch"),
              (Lines{L"NotesView.FTSearch method (BSTR \"[Phone] CONTAINS \"061234\"\", I2 1)",
                     L"NotesView.FTSearch method (BSTR \"[Phone] CONTAINS \"06.12 34\"\", I2 1)"}));
    EXPECT_EQ(person.lastName, L"Zola");
    forgetCalls();
    EXPECT_FALSE(search(L"0699"));
    EXPECT_EQ(calls(L"NotesView.FTSearch method"), 1u) << "both writings are the same";
    EXPECT_EQ(calls(L"NotesView.GetFirstDocument method"), 0u);
}

// A book of the ini file without phone items has one without a name.

TEST_F(LotusNumberSearch, BookWithAMainViewButNoPhoneItems_IsRefusedByNotes_AndTheNextBookSearched)
{
    std::string withoutItems = describedBooks;
    withoutItems.erase(withoutItems.find("PhoneNumber=Phone\n"), std::string("PhoneNumber=Phone\n").size());
    withoutItems.replace(withoutItems.find("Base 1,Base 2"), std::string("Base 1,Base 2").size(), "Base 2,Base 1");
    session.LotusMustInit = true;
    ready(withoutItems);
    ASSERT_EQ(session.LotusAddressBooks[0].PhoneNumber, Lines{L""});
    add(L"names.nsf", durand);
    EXPECT_TRUE(search(L"014567"));
    EXPECT_EQ(person.lastName, L"Durand");
    EXPECT_EQ(lastLogLine(), noAccess(L"CN=Mail1/O=Acme books\\company.nsf"));
}

TEST_F(LotusNumberSearch, BookWithoutViews_OrWithAViewThatIsNotThere_IsSkippedQuietly)
{
    LotusAddressBook without = session.LotusAddressBooks[0];
    without.ViewTel = without.MainView = L"";
    LotusAddressBook lost = session.LotusAddressBooks[0];
    lost.ViewTel = L"no such view";
    LotusAddressBook lostMain = session.LotusAddressBooks[1];
    lostMain.MainView = L"no such view";
    session.LotusAddressBooks = {without, lost, lostMain};
    const std::wstring before = lastLogLine();
    EXPECT_FALSE(search(L"014567"));
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
    EXPECT_EQ(lastLogLine(), before);
    EXPECT_EQ(calls(L"NotesSession.GetDatabase method"), 3u);
}

TEST_F(LotusNumberSearch, BookThatCannotBeOpened_IsLogged_AndTheOthersSearched)
{
    std::swap(session.LotusAddressBooks[0], session.LotusAddressBooks[1]);
    notes.ask(L"available CN=Mail1/O=Acme!!books\\company.nsf off");
    add(L"names.nsf", durand);
    EXPECT_TRUE(search(L"014567"));
    EXPECT_EQ(person.lastName, L"Durand");
    EXPECT_EQ(lastLogLine(), noAccess(L"CN=Mail1/O=Acme books\\company.nsf"));
    EXPECT_EQ(trapped.procedures, Lines{L"SearchInPublicAdressBook"});
}

TEST_F(LotusNumberSearch, FailureAtEveryCall_IsLogged_AndTheOtherBookSearched)
{
    session.LotusAddressBooks[0].MailAddress.clear();
    add(L"names.nsf", durand);
    add(company, L"Form=Employee\nName=Zola\nPhone=014567\n");
    search(L"014567");
    const std::size_t count = notes.recorder().calls().size();
    for (std::size_t n = 1; n <= count; ++n) {
        WriteLotusLog(session, L"no error");
        forgetCalls();
        fault(L"at " + std::to_wstring(n) + L" fail 0x80004005");
        EXPECT_TRUE(search(L"014567")) << n;
        EXPECT_EQ(book.Base, L"books\\company.nsf") << n;
        EXPECT_EQ(lastLogLine(), noAccess(L" names.nsf")) << n;
    }
    EXPECT_TRUE(session.LotusReady);
}

TEST_F(LotusNumberSearch, MailAddressThatCannotBeRead_IsNone_AndThePersonIsFoundAndShown)
{
    add(L"names.nsf", durand);
    const std::wstring before = lastLogLine();
    for (const wchar_t* item : {L"MailAddress", L"InternetAddress"}) {
        notes.ask(L"close-windows");
        forgetCalls();
        fault(L"on NotesDocument.GetItemValue at " + std::wstring(*item == L'M' ? L"4" : L"5") + L" fail 0x80004005");
        EXPECT_TRUE(searchAndShow(L"014567")) << desk::utf8(item);
        EXPECT_EQ(record().at(*item == L'M' ? 6 : 7),
                  L"NotesDocument.GetItemValue method (BSTR \"" + std::wstring(item) + L"\")")
            << "the one that failed";
        EXPECT_EQ(person.fullName + L"|" + person.mail + L"|" + person.noteId, L"Marc Durand||8F6") << desk::utf8(item);
        EXPECT_TRUE(notes.ask(L"windows").ends_with(L"\tread\tfront")) << desk::utf8(item);
    }
    EXPECT_EQ(lastLogLine(), before);
    EXPECT_EQ(trapped.procedures, (Lines{L"readFirstNonEmptyItemValue", L"readFirstNonEmptyItemValue"}));
}

TEST_F(LotusNumberSearch, BusyOnceAtEveryCall_FindsThePersonAllTheSame)
{
    add(L"names.nsf", durand);
    search(L"014567");
    const std::size_t count = notes.recorder().calls().size();
    for (std::size_t n = 1; n <= count; ++n) {
        forgetCalls();
        fault(L"at " + std::to_wstring(n) + L" busy");
        EXPECT_TRUE(search(L"014567")) << n;
        EXPECT_EQ(book.Base, L"names.nsf") << n;
    }
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
}

TEST_F(LotusNumberSearch, NumberThatNoQueryCanSay_IsAskedForByKeyOnly_AndNothingIsLogged)
{
    add(company, L"Form=Employee\nName=Zola\nPhone=0612\n");
    const std::wstring before = lastLogLine();
    for (const wchar_t* number :
         {L"06\"12", L"\"", L"06*", L"06??", L"*", L"#", L"-/-", L" . ", L"x\" OR [Name] CONTAINS \"Zola"}) {
        forgetCalls();
        EXPECT_FALSE(search(number)) << desk::utf8(number);
        EXPECT_GE(calls(L"NotesView.GetDocumentByKey method"), 1u) << desk::utf8(number);
        EXPECT_EQ(callsTo(L"NotesView.FTSearch"), Lines{}) << desk::utf8(number);
    }
    EXPECT_EQ(lastLogLine(), before);
    add(L"names.nsf", L"Form=Person\nLastName=Abel\nOfficePhoneNumber=06\"12\n");
    EXPECT_TRUE(search(L"06\"12"));
    EXPECT_EQ(person.lastName, L"Abel") << "a key may hold anything";
}

TEST_F(LotusNumberSearch, EmptyNumber_EndsQuietly)
{
    EXPECT_FALSE(search(L""));
    EXPECT_FALSE(search(L" . "));
    EXPECT_TRUE(session.LotusReady);
}

TEST_F(LotusNumberSearch, DocumentWithoutTheNamedItems_IsFound_WithEmptyNames)
{
    add(L"names.nsf", L"Form=Person\nOfficePhoneNumber=014567\n");
    person = {L"old", L"old", L"old", L"old", L"old"};
    EXPECT_TRUE(search(L"014567"));
    EXPECT_EQ(person.lastName + person.firstName + person.fullName + person.mail, L"");
    EXPECT_EQ(person.noteId, L"8F6");
}

TEST_F(LotusNumberSearch, BareValueOfAMissingItem_IsAFailureOfThisBook_WithWhatWasReadBefore)
{
    notes.ask(L"missing text");
    add(L"names.nsf", L"Form=Person\nLastName=Abel\nOfficePhoneNumber=014567\n");
    EXPECT_FALSE(search(L"014567"));
    EXPECT_EQ(person.lastName, L"Abel");
    EXPECT_EQ(person.noteId, L"");
    EXPECT_EQ(lastLogLine(), noAccess(L" names.nsf"));
}

TEST_F(LotusNumberSearch, ItemsOfOtherTypes_BecomeTexts)
{
    add(L"names.nsf", L"Form=Person\nLastName:number=42\nFirstName:date=2023-03-15\nFullName:richtext=Marc\n"
                      L"MailAddress:number=7\nOfficePhoneNumber=014567\n");
    EXPECT_TRUE(search(L"014567"));
    EXPECT_EQ(person.lastName, L"42");
    EXPECT_EQ(person.firstName, L"3/15/2023");
    EXPECT_EQ(person.fullName, L"Marc");
    EXPECT_EQ(person.mail, L"7");
}

TEST_F(LotusNumberSearch, PersonWithoutTheWantedField_IsSearchedInTheNextBooks)
{
    add(L"names.nsf", L"Form=Person\nLastName=Abel\nOfficePhoneNumber=014567\n");
    add(company, L"Form=Employee\nName=Zola\nMail=zola@acme.fr\nPhone=014567\n");
    EXPECT_TRUE(search(L"014567", L"InternetAddress"));
    EXPECT_EQ(person.lastName, L"Zola");
    EXPECT_EQ(book.Base, L"books\\company.nsf");
    EXPECT_TRUE(search(L"014567", L"LastName,InternetAddress"));
    EXPECT_EQ(person.lastName, L"Abel") << "one of two is enough";
    EXPECT_EQ(book.Base, L"names.nsf");
}

TEST_F(LotusNumberSearch, NoBookQualifies_FalseWithTheLastBooksValues)
{
    add(L"names.nsf", L"Form=Person\nLastName=Abel\nOfficePhoneNumber=014567\n");
    add(company, L"Form=Employee\nName=Zola\nPhone=014567\n");
    EXPECT_FALSE(search(L"014567", L"InternetAddress"));
    EXPECT_EQ(person.lastName, L"Zola");
    EXPECT_NE(person.noteId, L"");
    EXPECT_EQ(book.Base, L"") << "nothing was found in a book";
}

TEST_F(LotusNumberSearch, NotReady_TouchesNothing)
{
    session.LotusReady = false;
    person.lastName = L"kept";
    EXPECT_FALSE(search(L"014567"));
    EXPECT_FALSE(SearchInPublicAdressBook(session, session.LotusAddressBooks[0], L"014567", person, Show::yes));
    EXPECT_EQ(person.lastName, L"kept");
    EXPECT_EQ(notes.recorder().calls().size(), 0u);
}

TEST_F(LotusNumberSearch, FullTextHitWithoutADocument_FindsNobody_Quietly)
{
    add(company, L"Form=Employee\nName=Zola\nPhone=0612\n");
    const std::wstring before = lastLogLine();
    fault(L"on NotesView.GetFirstDocument answer Nothing");
    EXPECT_FALSE(search(L"0612"));
    EXPECT_EQ(calls(L"NotesView.GetFirstDocument method"), 1u);
    EXPECT_EQ(lastLogLine(), before);
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
}

TEST_F(LotusNumberSearch, TypedArrays_AreReadAsAnyOther)
{
    notes.ask(L"arrays typed");
    add(L"names.nsf", L"Form=Person\nLastName=Durand\nFirstName:number=42\nFullName:date=2023-03-15\n"
                      L"OfficePhoneNumber=014567\nMailAddress=\nMailAddress+=marc@acme.fr\n");
    EXPECT_TRUE(search(L"014567"));
    EXPECT_EQ(person.lastName + L"|" + person.firstName + L"|" + person.fullName + L"|" + person.mail,
              L"Durand|42|3/15/2023|marc@acme.fr");
    add(L"names.nsf", L"Form=Person\nOfficePhoneNumber=99\n");
    EXPECT_TRUE(search(L"99"));
    EXPECT_EQ(person.lastName + person.mail, L"") << "missing items";
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
}

// What docs/settings.md recommends a view by telephone number for.

TEST_F(LotusNumberSearch, PersonThatTheFullTextIndexDoesNotKnowYet_IsFoundByTheTelephoneViewOnly)
{
    notes.load(std::wstring(notesDatabases) +
               L"\n[database]\nFile=indexed.nsf\nFullTextIndex=True\n"
               L"[view]\nName=Main\nForm=Person\n[view]\nName=Phones\nKey=OfficePhoneNumber\nForm=Person\n");
    LotusAddressBook indexed = session.LotusAddressBooks[0];
    indexed.Base = L"indexed.nsf";
    indexed.MainView = L"Main";
    indexed.ViewTel.clear();
    session.LotusAddressBooks = {indexed};
    notes.ask(L"index indexed.nsf stale");
    add(L"indexed.nsf", durand);
    EXPECT_FALSE(search(L"014567"));
    session.LotusAddressBooks[0].ViewTel = L"Phones";
    EXPECT_TRUE(search(L"014567"));
    session.LotusAddressBooks[0].ViewTel.clear();
    notes.ask(L"index indexed.nsf updated");
    EXPECT_TRUE(search(L"014567"));
}

}
