#include "lotus/mail_search.h"

#include "lotus/log_document.h"
#include "lotus_fixture.h"

namespace hublink {

namespace {

constexpr const wchar_t* company = L"CN=Mail1/O=Acme!!books\\company.nsf";

class LotusMailSearch : public LotusFixture {
protected:
    LotusMailSearch() { ready(); }

    bool search(const std::wstring& mail, Show show = Show::no) { return SearchByMail(session, mail, person, show); }

    Party person;
    std::wstring& phone = person.number;
    std::wstring& lastName = person.lastName;
    std::wstring& firstName = person.firstName;
};

}

TEST_F(LotusMailSearch, PersonInTheMailView_GivesTheFirstFilledNumber)
{
    add(L"names.nsf", L"Form=Person\nLastName=Durand\nFirstName=Marc\nMailAddress=marc.d@acme.fr\n"
                      L"OfficePhoneNumber=\nCellPhoneNumber=\nCellPhoneNumber+=06.12\n");
    EXPECT_TRUE(search(L"marc.d@acme.fr"));
    EXPECT_EQ(phone, L"06.12") << "as it stands there";
    EXPECT_EQ(lastName, L"Durand");
    EXPECT_EQ(firstName, L"Marc");
    EXPECT_EQ(record(), (Lines{L"NotesSession.GetDatabase method (BSTR \"\", BSTR \"names.nsf\")",
                               L"NotesDatabase.GetView method (BSTR \"($Mails)\")",
                               L"NotesView.GetDocumentByKey method (BSTR \"marc.d@acme.fr\", BOOL True)",
                               L"NotesDocument.GetItemValue method (BSTR \"LastName\")",
                               L"NotesDocument.GetItemValue method (BSTR \"FirstName\")",
                               L"NotesDocument.GetItemValue method (BSTR \"OfficePhoneNumber\")",
                               L"NotesDocument.GetItemValue method (BSTR \"CellPhoneNumber\")"}));
}

TEST_F(LotusMailSearch, MailWithDotsAndSpaces_IsLookedUpUnchanged_AndOnce)
{
    EXPECT_FALSE(search(L"Marc D. <m.d@acme.fr>"));
    EXPECT_EQ(callsTo(L"NotesView."),
              (Lines{L"NotesView.GetDocumentByKey method (BSTR \"Marc D. <m.d@acme.fr>\", BOOL True)",
                     L"NotesView.FTSearch method (BSTR \"[Mail] CONTAINS \"Marc D. <m.d@acme.fr>\"\", I2 1)"}));
}

TEST_F(LotusMailSearch, BookWithoutAMailView_IsSearchedByFullText_InItsMailItems)
{
    session.LotusAddressBooks[1].MailAddress = {L"Mail", L"Private"};
    add(company, L"Form=Employee\nName=Zola\nGivenName=Emile\nPrivate=zola@acme.fr\nPhone=0612\n");
    EXPECT_TRUE(search(L"zola@acme.fr"));
    EXPECT_EQ(lastName + L" " + firstName + L" " + phone, L"Zola Emile 0612");
    EXPECT_EQ(callsTo(L"NotesView.FTSearch"),
              Lines{L"NotesView.FTSearch method (BSTR \"[Mail] CONTAINS \"zola@acme.fr\" OR [Private] CONTAINS "
                    L"\"zola@acme.fr\"\", I2 1)"});
}

TEST_F(LotusMailSearch, PersonWithoutANumber_IsSearchedInTheNextBook)
{
    add(L"names.nsf", L"Form=Person\nLastName=Abel\nMailAddress=a@acme.fr\nOfficePhoneNumber=\n");
    add(company, L"Form=Employee\nName=Zola\nMail=a@acme.fr\nPhone=0612\n");
    EXPECT_TRUE(search(L"a@acme.fr"));
    EXPECT_EQ(lastName, L"Zola");
    EXPECT_EQ(phone, L"0612");
}

TEST_F(LotusMailSearch, NobodyHasANumber_FalseWithTheLastNames)
{
    add(L"names.nsf", L"Form=Person\nLastName=Abel\nMailAddress=a@acme.fr\n");
    phone = L"old";
    EXPECT_FALSE(search(L"a@acme.fr"));
    EXPECT_EQ(lastName, L"Abel");
    EXPECT_EQ(phone, L"");
    LotusAddressBook book = session.LotusAddressBooks[0];
    EXPECT_TRUE(SearchInPublicAdressBookByMail(session, L"a@acme.fr", book, person, Show::no))
        << "this book has the document";
}

TEST_F(LotusMailSearch, Shown_TheDocumentOpensForReading_WhenItHasANumber)
{
    add(L"names.nsf", L"Form=Person\nLastName=Abel\nMailAddress=a@acme.fr\n");
    EXPECT_FALSE(search(L"a@acme.fr", Show::yes));
    EXPECT_EQ(callsTo(L"NotesUI"), Lines{});
    add(L"names.nsf", L"Form=Person\nLastName=Abel\nMailAddress=b@acme.fr\nOfficePhoneNumber=0612\n");
    EXPECT_TRUE(search(L"b@acme.fr", Show::yes));
    EXPECT_EQ(callsTo(L"NotesUI"), (Lines{L"NotesUIWorkspace.OpenDatabase method (BSTR \"\", BSTR \"names.nsf\")",
                                          L"NotesUIWorkspace.EditDocument method (BOOL False, DISPATCH)"}));
    EXPECT_TRUE(notes.ask(L"windows").ends_with(L"\tread\tfront"));
    forgetCalls();
    EXPECT_TRUE(search(L"b@acme.fr"));
    EXPECT_EQ(callsTo(L"NotesUI"), Lines{});
}

TEST_F(LotusMailSearch, BookThatCannotBeOpened_IsLogged_AndTheOthersSearched)
{
    notes.ask(L"available names.nsf off");
    add(company, L"Form=Employee\nName=Zola\nMail=a@acme.fr\nPhone=0612\n");
    EXPECT_TRUE(search(L"a@acme.fr"));
    EXPECT_EQ(lastName, L"Zola");
    EXPECT_EQ(lastLogLine(), L"\n3/15/2023 12:00:00 PM Error acces  names.nsf in SearchInPublicAdressBookByMail");
}

// But for the last call, the number's own, which is read under a trap of its own.
TEST_F(LotusMailSearch, FailureAtEveryCall_IsLogged_AndTheOtherBookSearched)
{
    add(L"names.nsf", L"Form=Person\nLastName=Abel\nMailAddress=a@acme.fr\nOfficePhoneNumber=0699\n");
    add(company, L"Form=Employee\nName=Zola\nMail=a@acme.fr\nPhone=0612\n");
    search(L"a@acme.fr");
    const std::size_t count = notes.recorder().calls().size();
    for (std::size_t n = 1; n <= count; ++n) {
        WriteLotusLog(session, L"no error");
        forgetCalls();
        fault(L"at " + std::to_wstring(n) + L" fail 0x80004005");
        EXPECT_TRUE(search(L"a@acme.fr")) << n;
        EXPECT_EQ(lastName, L"Zola") << n;
        EXPECT_EQ(lastLogLine(), n == count ? L"\n3/15/2023 12:00:00 PM no error"
                                            : L"\n3/15/2023 12:00:00 PM Error acces  names.nsf in "
                                              L"SearchInPublicAdressBookByMail")
            << n;
    }
}

TEST_F(LotusMailSearch, NumberThatCannotBeRead_IsNone_AndTheOtherBookSearched_WithoutALogLine)
{
    add(L"names.nsf", L"Form=Person\nLastName=Abel\nMailAddress=a@acme.fr\nOfficePhoneNumber=0699\n");
    add(company, L"Form=Employee\nName=Zola\nMail=a@acme.fr\nPhone=0612\n");
    const std::wstring before = lastLogLine();
    fault(L"on NotesDocument.GetItemValue at 3 fail 0x80004005");
    EXPECT_TRUE(search(L"a@acme.fr"));
    EXPECT_EQ(lastName + L" " + phone, L"Zola 0612");
    EXPECT_EQ(lastLogLine(), before);
    EXPECT_EQ(trapped.procedures, Lines{L"readFirstNonEmptyItemValue"});
}

TEST_F(LotusMailSearch, SenderThatNoQueryCanSay_IsAskedForByKeyOnly_AndNothingIsLogged)
{
    add(company, L"Form=Employee\nName=Zola\nMail=zola@acme.fr\nPhone=0612\n");
    const std::wstring before = lastLogLine();
    for (const wchar_t* sender : {L"\"Zola, Emile\" <zola@acme.fr>", L"*", L"?@*", L"zola@acme.f?", L"<>", L"..."}) {
        forgetCalls();
        EXPECT_FALSE(search(sender)) << desk::utf8(sender);
        EXPECT_EQ(calls(L"NotesView.GetDocumentByKey method"), 1u) << desk::utf8(sender);
        EXPECT_EQ(callsTo(L"NotesView.FTSearch"), Lines{}) << desk::utf8(sender);
    }
    EXPECT_EQ(lastLogLine(), before);
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
}

TEST_F(LotusMailSearch, MailItemsThatAreNone_AreNoSearch)
{
    session.LotusAddressBooks[1].MailAddress.clear();
    EXPECT_FALSE(search(L"a@acme.fr"));
    EXPECT_EQ(calls(L"NotesView.FTSearch method"), 0u);
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
}

TEST_F(LotusMailSearch, NotReady_TouchesNothing)
{
    session.LotusReady = false;
    const LotusAddressBook book = session.LotusAddressBooks[0];
    EXPECT_FALSE(search(L"a@acme.fr", Show::yes));
    EXPECT_FALSE(SearchInPublicAdressBookByMail(session, L"a@acme.fr", book, person, Show::yes));
    EXPECT_EQ(notes.recorder().calls().size(), 0u);
}

}
