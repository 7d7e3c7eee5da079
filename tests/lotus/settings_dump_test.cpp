// What the log tells of the settings that were read.
#include "settings_fixture.h"

#include "lotus/log_document.h"

namespace hublink {

namespace {

using LotusSettingsDump = SettingsFixture;

}

TEST_F(LotusSettingsDump, Dump_ListsEveryBook_AsOneEntryOfTheLog)
{
    ready();
    WriteLotusLog(session, L"before");
    session.LotusAddressBooks[1].PersonalAddressBook = true;
    session.NewLogDocument = true;
    DumpLotusAddressBooks(session);
    EXPECT_EQ(field(documents(L"log.nsf").back(), L"Text"), L"\n3/15/2023 12:00:00 PM Base 0\n"
                                                            "Server=\n"
                                                            "Base=names.nsf\n"
                                                            "Personnal Contacts selected\n"
                                                            "MainView=People\n"
                                                            "View (mail)=($Mails)\n"
                                                            "View (Tel)=($Phones)\n"
                                                            "FirstName=FirstName\n"
                                                            "LastName=LastName\n"
                                                            "FullName=FullName\n"
                                                            "PhoneNumber=OfficePhoneNumber CellPhoneNumber\n"
                                                            "Mail=MailAddress InternetAddress\n"
                                                            "Form=Person\n"
                                                            "Type=PersonType\n"
                                                            "Base 1\n"
                                                            "Server=CN=Mail1/O=Acme\n"
                                                            "Base=books\\company.nsf\n"
                                                            "Personnal Contacts\n"
                                                            "MainView=Staff\n"
                                                            "View (mail)=\n"
                                                            "View (Tel)=\n"
                                                            "FirstName=GivenName\n"
                                                            "LastName=Name\n"
                                                            "FullName=WholeName\n"
                                                            "PhoneNumber=Phone\n"
                                                            "Mail=Mail\n"
                                                            "Form=Employee\n"
                                                            "Type=EmployeeType\n");
}

TEST_F(LotusSettingsDump, DumpOfABookThatIsNotPersonal_HasNoLineAboutIt)
{
    ready();
    session.LotusAddressBooks.assign(1, {});
    session.LotusAddressBooks[0].PhoneNumber = {L"", L"x", L""};
    session.nSelectedPersonal = -1;
    session.NewLogDocument = true;
    DumpLotusAddressBooks(session);
    EXPECT_EQ(field(documents(L"log.nsf").back(), L"Text"),
              L"\n3/15/2023 12:00:00 PM Base 0\nServer=\nBase=\nMainView=\nView (mail)=\nView (Tel)=\n"
              "FirstName=\nLastName=\nFullName=\nPhoneNumber= x \nMail=\nForm=\nType=\n");
}

TEST_F(LotusSettingsDump, ReadingThatEndsBeforeTheDump_WritesNone)
{
    ready();
    session.NewLogDocument = true;
    read(twoBooks("Base 3"));
    EXPECT_EQ(documents(L"log.nsf").size(), 1u);
    read(twoBooks("Base 2"));
    EXPECT_EQ(documents(L"log.nsf").size(), 2u);
}

TEST_F(LotusSettingsDump, DumpThatCannotBeWritten_DoesNotEndTheReading)
{
    ready();
    fault(L"on NotesDocument.* fail 0x80004005");
    read(twoBooks("Base 2") + "[lotus call log description]\nState=read\n");
    EXPECT_EQ(session.LotusCallLog.State, L"read");
}

}
