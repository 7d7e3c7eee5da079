#include "current_document_fixture.h"

namespace hublink {

namespace {

constexpr const wchar_t* fromClaire = L"Form=Memo\nFrom=claire@example.com\nSubject=Hello\n";

class CurrentMail : public CurrentDocumentFixture {
protected:
    CurrentMail() { open(); }
};

}

TEST_F(CurrentMail, WithoutANumber_GetsTheSenders_AndIsSavedAndShownAnew)
{
    front(mailFile, fromClaire);
    EXPECT_EQ(update(), L"0299");
    EXPECT_EQ(saved(mailFile, L"Tel"), L"0299");
    EXPECT_EQ(deeds(), thenSavedAndShownAnew({L"NotesDocument.ReplaceItemValue method (BSTR \"Tel\", BSTR \"0299\")"}));
    EXPECT_EQ(lastName, L"Petit");
    EXPECT_EQ(firstName, L"Claire");
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
}

TEST_F(CurrentMail, CallsOfNotes_ComeInThisOrder)
{
    front(mailFile, std::wstring(fromClaire) + L"Tel=0300");
    session.bAlwaysVerifyPhoneNumber = true;
    update();
    EXPECT_EQ(record(), (Lines{L"NotesUIWorkspace.CurrentDatabase get ()",
                               L"NotesUIDatabase.Database get ()",
                               L"NotesUIWorkspace.CurrentView get ()",
                               L"NotesDatabase.Server get ()",
                               L"NotesDatabase.FilePath get ()",
                               L"NotesUIWorkspace.CurrentDocument get ()",
                               L"NotesUIDocument.Document get ()",
                               L"NotesDocument.GetFirstItem method (BSTR \"Tel\")",
                               L"NotesDocument.GetItemValue method (BSTR \"Tel\")",
                               L"NotesDocument.GetItemValue method (BSTR \"From\")",
                               L"NotesSession.GetDatabase method (BSTR \"\", BSTR \"names.nsf\")",
                               L"NotesDatabase.GetView method (BSTR \"($Mails)\")",
                               L"NotesView.GetDocumentByKey method (BSTR \"claire@example.com\", BOOL True)",
                               L"NotesDocument.GetItemValue method (BSTR \"LastName\")",
                               L"NotesDocument.GetItemValue method (BSTR \"FirstName\")",
                               L"NotesDocument.GetItemValue method (BSTR \"OfficePhoneNumber\")",
                               L"NotesUIDocument.EditMode get ()",
                               L"NotesDocument.ReplaceItemValue method (BSTR \"Tel\", BSTR \"0299\")",
                               L"NotesDocument.Save method (BOOL True, BOOL True)",
                               L"NotesUIWorkspace.EditDocument method (BOOL False, DISPATCH)",
                               L"NotesUIDocument.Close method ()"}));
}

TEST_F(CurrentMail, WithANumber_IsNeverLookedUpAgain_UnlessItShallBeVerified)
{
    front(mailFile, std::wstring(fromClaire) + L"Tel=0300");
    EXPECT_EQ(update(), L"0300");
    EXPECT_EQ(update(), L"0300");
    EXPECT_EQ(calls(L"NotesSession.GetDatabase method"), 0u);
    EXPECT_TRUE(nothingWasSaved());

    session.bAlwaysVerifyPhoneNumber = true;
    EXPECT_EQ(update(), L"0299");
    EXPECT_EQ(saved(mailFile, L"Tel"), L"0299");
}

TEST_F(CurrentMail, VerifiedNumberAgrees_IsTheResult_AndTheMailIsNotTouched)
{
    front(mailFile, std::wstring(fromClaire) + L"Tel=0299");
    session.bAlwaysVerifyPhoneNumber = true;
    EXPECT_EQ(update(), L"0299");
    EXPECT_EQ(calls(L"NotesSession.GetDatabase method"), 1u);
    EXPECT_EQ(deeds(), Lines{});
    EXPECT_TRUE(nothingWasSaved());
}

TEST_F(CurrentMail, LookUpSwitchedOff_MailWithoutANumber_GetsNone)
{
    session.bCallInMail = false;
    front(mailFile, fromClaire);
    EXPECT_EQ(update(), L"");
    session.bAlwaysVerifyPhoneNumber = true;
    EXPECT_EQ(update(), L"");
    EXPECT_EQ(calls(L"NotesSession.GetDatabase method"), 0u);
    EXPECT_TRUE(nothingWasSaved());
}

TEST_F(CurrentMail, LookUpSwitchedOff_TheNumberThereIsTheResult)
{
    session.bCallInMail = false;
    session.bAlwaysVerifyPhoneNumber = true;
    front(mailFile, std::wstring(fromClaire) + L"Tel=0300");
    EXPECT_EQ(update(), L"0300");
    EXPECT_EQ(saved(mailFile, L"Tel"), L"0300");
}

TEST_F(CurrentMail, NoNumberWasFound_TheOneThereStays_AndIsTheResult)
{
    session.bAlwaysVerifyPhoneNumber = true;
    front(mailFile, L"Form=Memo\nFrom=stranger@example.com\nTel=0300");
    EXPECT_EQ(update(), L"0300");
    EXPECT_EQ(saved(mailFile, L"Tel"), L"0300");
    EXPECT_EQ(calls(L"NotesView.GetDocumentByKey method"), 1u);
    EXPECT_EQ(deeds(), Lines{});
}

TEST_F(CurrentMail, OpenForEditing_IsNotTouched_AndOffersWhatItHas)
{
    session.bAlwaysVerifyPhoneNumber = true;
    front(mailFile, std::wstring(fromClaire) + L"Tel=0300", L" edit");
    EXPECT_EQ(update(), L"0300");
    EXPECT_EQ(saved(mailFile, L"Tel"), L"0300");
    EXPECT_EQ(deeds(), Lines{});
    EXPECT_TRUE(nothingWasSaved());
}

TEST_F(CurrentMail, OpenForEditing_WithoutANumber_GetsNone)
{
    front(mailFile, fromClaire, L" edit");
    EXPECT_EQ(update(), L"");
    EXPECT_EQ(saved(mailFile, L"Tel"), L"(none)");
    EXPECT_EQ(notes.ask(L"documents mail\\anna.nsf").find(L"@Unsaved"), std::wstring::npos);
}

TEST_F(CurrentMail, SeveralSenders_OnlyTheFirstThatIsNotEmptyIsLookedUp)
{
    front(mailFile, L"Form=Memo\nFrom=\nFrom+=claire@example.com\nFrom+=other@example.com");
    EXPECT_EQ(update(), L"0299");

    front(mailFile, L"Form=Memo\nFrom=other@example.com\nFrom+=claire@example.com");
    EXPECT_EQ(update(), L"");
    EXPECT_EQ(calls(L"NotesView.GetDocumentByKey method"), 1u);
}

TEST_F(CurrentMail, WithoutASender_NobodyIsLookedUp)
{
    add(ownBook, L"Form=Person\nLastName=No mail address\nOfficePhoneNumber=0400");
    for (const wchar_t* mail : {L"Form=Memo", L"Form=Memo\nFrom=", L"Form=Memo\nFrom=\nFrom+="}) {
        front(mailFile, mail);
        EXPECT_EQ(update(), L"");
        EXPECT_EQ(calls(L"NotesSession.GetDatabase method"), 0u);
    }
}

TEST_F(CurrentMail, SenderOfTheSecondBook_IsFoundToo)
{
    add(L"books\\company.nsf", L"Form=Employee\nName=Petit\nPhone=0500\nMail=petit@example.com");
    front(mailFile, L"Form=Memo\nFrom=petit@example.com");
    EXPECT_EQ(update(), L"0500");
    EXPECT_EQ(saved(mailFile, L"Tel"), L"0500");
}

TEST_F(CurrentMail, Sender_IsNotShown)
{
    front(mailFile, fromClaire);
    update();
    EXPECT_EQ(calls(L"NotesUIWorkspace.OpenDatabase method"), 0u);
    EXPECT_EQ(calls(L"NotesUIWorkspace.EditDocument method"), 1u) << "the mail's own";
}

TEST_F(CurrentMail, EmptyNumber_IsNone)
{
    front(mailFile, std::wstring(fromClaire) + L"Tel=\nTel+=0300");
    EXPECT_EQ(update(), L"0299");
    EXPECT_EQ(saved(mailFile, L"Tel"), L"0299");
    EXPECT_EQ(saved(mailFile, L"Tel+"), L"(none)");
}

TEST_F(CurrentMail, NumberThatIsNoText_IsTakenAsOne)
{
    front(mailFile, std::wstring(fromClaire) + L"Tel:number=299");
    EXPECT_EQ(update(), L"299");
    front(mailFile, std::wstring(fromClaire) + L"Tel:richtext=0301");
    EXPECT_EQ(update(), L"0301");
    EXPECT_TRUE(nothingWasSaved());
}

TEST_F(CurrentMail, MissingSenderThatIsNoArray_EndsQuietly)
{
    notes.ask(L"missing text");
    front(mailFile, L"Form=Memo");
    EXPECT_EQ(update(), L"");
    front(mailFile, L"Form=Memo\nTel=0300");
    session.bAlwaysVerifyPhoneNumber = true;
    EXPECT_EQ(update(), L"0300") << "a sender that cannot be read is none";
    EXPECT_EQ(calls(L"NotesSession.GetDatabase method"), 0u);
    EXPECT_TRUE(nothingWasSaved());
    EXPECT_EQ(trapped.procedures, (Lines{L"readFirstNonEmptyItemValue", L"readFirstNonEmptyItemValue"}));
}

TEST_F(CurrentMail, MissingNumberThatIsNoArray_IsNoneAllTheSame)
{
    notes.ask(L"missing text");
    front(mailFile, fromClaire);
    EXPECT_EQ(update(), L"0299");
}

TEST_F(CurrentMail, ViewInFront_NoDocument_NothingHappens)
{
    add(mailFile, fromClaire);
    notes.ask(L"show mail\\anna.nsf (GroupCalendarFolder)");
    EXPECT_EQ(update(), L"");
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
}

TEST_F(CurrentMail, MailFile_IsRecognised_WhateverItsSpelling)
{
    session.MailServer = L"mail1/ACME";
    session.MailFile = L"ANNA.nsf";
    front(mailFile, fromClaire);
    EXPECT_EQ(update(), L"0299");
}

TEST_F(CurrentMail, MailOfAnotherServer_IsLeftAlone)
{
    session.MailServer = L"CN=Mail2/O=Acme";
    front(mailFile, std::wstring(fromClaire) + L"Tel=0300");
    EXPECT_EQ(update(), L"");
    EXPECT_EQ(calls(L"NotesUIWorkspace.CurrentDocument get"), 0u);
}

TEST_F(CurrentMail, BooksCannotBeReached_TheNumberThereIsTheResult)
{
    session.bAlwaysVerifyPhoneNumber = true;
    front(mailFile, std::wstring(fromClaire) + L"Tel=0300");
    session.NotesSession = automation::Object();
    EXPECT_EQ(update(), L"0300");
    EXPECT_TRUE(logLine().find(L"Error acces CN=Mail1/O=Acme books\\company.nsf in SearchInPublicAdressBookByMail") !=
                std::wstring::npos);
}

// Without the view in front nothing is lost, without the sender or in the
// search nobody is found, without anything else the update ends.
TEST_F(CurrentMail, FailsAtAnyCall_ResultIsEmptyOrTheNumberThere_AndTheSaveIsWholeOrNone)
{
    std::wstring number;
    const auto prepare = [&] {
        open();
        session.bAlwaysVerifyPhoneNumber = true;
        front(mailFile, std::wstring(fromClaire) + L"Tel=0300");
    };
    bool isSaved = false;
    bool searching = false;
    atEachCall(
        notes.recorder(), fails, prepare, [&] { number = update(); },
        [&](const std::wstring& failed) {
            searching |= failed.find(L"\"From\"") != std::wstring::npos;
            searching &= failed.find(L".EditMode") == std::wstring::npos;
            const bool isView = failed == L"NotesUIWorkspace.CurrentView get ()";
            EXPECT_EQ(number, isView ? L"0299" : searching ? L"0300" : L"") << desk::utf8(failed);
            EXPECT_EQ(saved(mailFile, L"Tel"), isSaved || isView ? L"0299" : L"0300") << desk::utf8(failed);
            isSaved |= failed.find(L".Save ") != std::wstring::npos;
        });
    EXPECT_TRUE(isSaved);
}

TEST_F(CurrentMail, NotesIsBusyAtAnyCall_NothingIsLost)
{
    std::wstring number;
    const auto prepare = [&] {
        open();
        front(mailFile, fromClaire);
    };
    atEachCall(
        notes.recorder(), isBusy, prepare, [&] { number = update(); },
        [&](const std::wstring& busy) {
            EXPECT_EQ(number, L"0299") << desk::utf8(busy);
            EXPECT_EQ(saved(mailFile, L"Tel"), L"0299") << desk::utf8(busy);
        });
}

// As the vendor's help has it: the path of a local database is complete, and
// the mail file's in the environment is not. Only its bare name is recognised.
TEST_F(CurrentMail, LocalMailFileInAFolder_IsNotRecognised_WhereItsPathIsComplete)
{
    notes.load(std::wstring(notesDatabases) + L"\n[database]\nFile=mail\\\\local.nsf\n[database]\nFile=flat.nsf\n");
    session.MailServer.clear();
    session.MailFile = L"mail\\local.nsf";
    front(L"mail\\local.nsf", std::wstring(fromClaire) + L"Tel=0300");
    EXPECT_EQ(update(), L"0300");
    notes.ask(L"data-folder C:\\Lotus\\Notes\\Data");
    EXPECT_EQ(update(), L"");
    session.MailFile = L"flat.nsf";
    front(L"flat.nsf", std::wstring(fromClaire) + L"Tel=0300");
    EXPECT_EQ(update(), L"0300");
}

TEST_F(CurrentMail, SenderAndNumberInTypedArrays_AreReadAsAnyOther)
{
    notes.ask(L"arrays typed");
    front(mailFile, L"Form=Memo\nTel:number=300\nFrom=\nFrom+=claire@example.com");
    session.bAlwaysVerifyPhoneNumber = true;
    EXPECT_EQ(update(), L"0299");
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
}

}
