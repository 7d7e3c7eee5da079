#include "settings_fixture.h"

namespace hublink {

namespace {

using LotusSettings = SettingsFixture;

}

TEST_F(LotusSettings, FiveParts_FillTheLocator_FurtherOnesAreIgnored)
{
    read(oneBook("base=a.nsf|Server/Acme|Main|($Tel)|($Mail)|more|still more"));
    const LotusAddressBook& book = session.LotusAddressBooks.at(0);
    EXPECT_EQ(book.Base, L"a.nsf");
    EXPECT_EQ(book.Server, L"Server/Acme");
    EXPECT_EQ(book.MainView, L"Main");
    EXPECT_EQ(book.ViewTel, L"($Tel)");
    EXPECT_EQ(book.ViewMail, L"($Mail)");
}

TEST_F(LotusSettings, BaseOfFourPartsOrFewer_LeavesTheLocatorAsItWas)
{
    for (const char* base : {"a.nsf|b|c|d", "a.nsf", ""}) {
        LotusAddressBook book;
        static_cast<LotusBaseRef&>(book) = {L"old.nsf", L"old server", L"old view", L"old phones", L"old mails"};
        writeIni("[lotus base description 7]\nbase=" + std::string(base) + "\nLastName=Last\n");
        ReadLotusBaseDescription(session, 7, book);
        EXPECT_EQ(book.Base + L"|" + book.Server + L"|" + book.MainView + L"|" + book.ViewTel + L"|" + book.ViewMail,
                  L"old.nsf|old server|old view|old phones|old mails");
        EXPECT_EQ(book.LastName, L"Last");
    }
}

TEST_F(LotusSettings, EveryKeyOfABook_GoesToItsField)
{
    read(oneBook("PersonalAddressBook=true\nbase=a.nsf||m|t|e\nLastName=1\nFirstName=2\nPhoneNumber=3,4\n"
                 "FullName=5\nMailAddress=6,7,8\nForm=9\nTypeForm=10"));
    const LotusAddressBook& book = session.LotusAddressBooks.at(0);
    EXPECT_TRUE(book.PersonalAddressBook);
    EXPECT_EQ(book.LastName, L"1");
    EXPECT_EQ(book.FirstName, L"2");
    EXPECT_EQ(book.PhoneNumber, (Names{L"3", L"4"}));
    EXPECT_EQ(book.FullName, L"5");
    EXPECT_EQ(book.MailAddress, (Names{L"6", L"7", L"8"}));
    EXPECT_EQ(book.Form, L"9");
    EXPECT_EQ(book.TypeForm, L"10");
}

TEST_F(LotusSettings, EmptyItemLists_AreOneEmptyNameEach)
{
    read(oneBook("base=a.nsf||||\nPhoneNumber="));
    EXPECT_EQ(session.LotusAddressBooks.at(0).PhoneNumber, Names{L""});
    EXPECT_EQ(session.LotusAddressBooks.at(0).MailAddress, Names{L""});
}

TEST_F(LotusSettings, ItemNames_KeepTheirBlanks_AndEmptyOnesCount)
{
    read(oneBook("PhoneNumber=Office Phone, Cell,,Home"));
    EXPECT_EQ(session.LotusAddressBooks.at(0).PhoneNumber, (Names{L"Office Phone", L" Cell", L"", L"Home"}));
}

TEST_F(LotusSettings, ItemListOfMoreThan1023Characters_IsCutThere)
{
    read(oneBook("PhoneNumber=" + std::string(1000, 'a') + "," + std::string(100, 'b')));
    EXPECT_EQ(session.LotusAddressBooks.at(0).PhoneNumber, (Names{std::wstring(1000, L'a'), std::wstring(22, L'b')}));
}

TEST_F(LotusSettings, PersonalBook_OnlyForExactlyTrue)
{
    for (const char* value : {"True", "TRUE", "1", "yes", "true.", ""}) {
        read(twoBooks("Base 1", value));
        EXPECT_FALSE(session.LotusAddressBooks.at(0).PersonalAddressBook) << value;
    }
    read(twoBooks("Base 1", "true"));
    EXPECT_TRUE(session.LotusAddressBooks.at(0).PersonalAddressBook);
}

TEST_F(LotusSettings, ServerNameMark_IsReplacedByTheSessionsServer_InTheBooksOnly)
{
    session.NotesSession = notes.create(L"Notes.NotesSession");
    read("[lotus]\nNbPublicAddressBook=3\nOrder=Base 1,Base 2\n"
         "[lotus base description 1]\nbase=a.nsf|<server name>|m|t|e\n"
         "[lotus base description 2]\nbase=b.nsf|<Server name>|m|t|e\n"
         "[lotus base description 3]\nbase=c.nsf|<server name>|m|t|e\n"
         "[lotus call log description]\nbase=d.nsf|<server name>|m|t|e\n"
         "[lotus personnel log description]\nbase=f.nsf|<server name>|m|t|e\n");
    ReadLotusPersonalLogIni(session);
    EXPECT_EQ(session.LotusAddressBooks.at(0).Server, L"") << "no mail server is known either";
    EXPECT_EQ(session.LotusAddressBooks.at(1).Server, L"<Server name>");
    EXPECT_EQ(session.LotusCallLog.Server, L"<server name>");
    EXPECT_EQ(session.LotusPersonalLog.Server, L"<server name>");
    EXPECT_EQ(record(), (Names{L"NotesSession.ServerName get ()", L"NotesSession.ServerName get ()"}))
        << "also for a described book that is not in the order";
}

TEST_F(LotusSettings, ServerNameThatNotesDoesNotTell_IsTheMailServer_AndTheReadingGoesOn)
{
    session.MailServer = L"CN=Mail1/O=Acme";
    const std::string ini =
        oneBook("base=a.nsf|<server name>|m|t|e\nLastName=Last") + "[lotus call log description]\nState=read\n";
    const auto expectMailServer = [&](const char* why) {
        session.LotusAddressBooks.clear();
        session.LotusCallLog.State.clear();
        read(ini);
        ASSERT_EQ(session.LotusAddressBooks.size(), 1u) << why;
        EXPECT_EQ(session.LotusAddressBooks[0].Server, L"CN=Mail1/O=Acme") << why;
        EXPECT_EQ(session.LotusAddressBooks[0].LastName, L"Last") << why;
        EXPECT_EQ(session.LotusCallLog.State, L"read") << why;
    };
    expectMailServer("there is no session");
    session.NotesSession = notes.create(L"Notes.NotesSession");
    expectMailServer("the client runs on no server");
    fault(L"on NotesSession.ServerName fail 0x80004005");
    expectMailServer("it cannot be read");
    fault(L"off");
    fault(L"on NotesSession.ServerName answer Nothing");
    expectMailServer("it is no text");
    fault(L"off");
    notes.ask(L"server-name off");
    session.NotesSession = notes.create(L"Notes.NotesSession");
    expectMailServer("the class has no such property");
}

TEST_F(LotusSettings, ServerNameThatNotesTells_IsTaken)
{
    session.MailServer = L"CN=Mail1/O=Acme";
    session.NotesSession = notes.create(L"Notes.NotesSession");
    fault(L"on NotesSession.ServerName answer BSTR CN=App1/O=Acme");
    read(oneBook("base=a.nsf|<server name>|m|t|e"));
    EXPECT_EQ(session.LotusAddressBooks.at(0).Server, L"CN=App1/O=Acme");
}

TEST_F(LotusSettings, Switches_AreOnOnlyForExactlyTrue)
{
    const struct {
        const char* key;
        bool LotusSession::* kept;
    } switches[] = {{"ShowGrpwAgenda", &LotusSession::bShowGrpwAgenda},
                    {"AlwaysVerifyPhoneNumber", &LotusSession::bAlwaysVerifyPhoneNumber},
                    {"CallInMail", &LotusSession::bCallInMail},
                    {"PopUpGrpwAgenda", &LotusSession::bPopUpGrpwAgenda}};
    const std::string start = "[lotus]\nNbPublicAddressBook=1\nOrder=1\n";
    for (const auto& set : switches) {
        read(start + set.key + "=true\n");
        for (const auto& other : switches) EXPECT_EQ(session.*other.kept, other.key == set.key) << other.key;
        for (const char* value : {"True", "1", "0", ""}) {
            session.*set.kept = true;
            read(start + set.key + "=" + value + "\n");
            EXPECT_FALSE(session.*set.kept) << set.key << "=" << value;
        }
    }
}

TEST_F(LotusSettings, EveryKeyOfTheCallLog_GoesToItsField)
{
    read(twoBooks("1") + "[lotus call log description]\nbase=h.nsf|s|m|t|e\nLastName=1\nFirstName=2\nPhoneNumber=3,x\n"
                         "State=4\nBeginDate=5\nEndDate=6\nIncoming=7\nExtern=8\nForm=9\nTypeForm=10\n"
                         "Acknowledged=11\nTypeCall=12\nInfoSupdocNoteId=13\nInfoSupServer=14\nInfoSupBase=15\n");
    const CallLogDescription& log = session.LotusCallLog;
    EXPECT_EQ(Names({log.Base, log.Server, log.MainView, log.ViewTel, log.ViewMail}),
              (Names{L"h.nsf", L"s", L"m", L"t", L"e"}));
    EXPECT_EQ(Names({log.LastName, log.FirstName, log.PhoneNumber, log.State, log.BeginDate, log.EndDate}),
              (Names{L"1", L"2", L"3,x", L"4", L"5", L"6"}));
    EXPECT_EQ(Names({log.Incoming, log.Extern, log.Form, log.TypeForm, log.Acknowledged, log.TypeCall}),
              (Names{L"7", L"8", L"9", L"10", L"11", L"12"}));
    EXPECT_EQ(Names({log.InfoSupdocNoteId, log.InfoSupServer, log.InfoSupBase}), (Names{L"13", L"14", L"15"}));
}

TEST_F(LotusSettings, InfoSupKeysThatAreMissing_AreTheirOwnNames_TheOthersEmpty)
{
    CallLogDescription& log = session.LotusCallLog;
    log.LastName = log.TypeCall = L"old";
    log.Base = L"old.nsf";
    read(twoBooks("1"));
    EXPECT_EQ(Names({log.InfoSupdocNoteId, log.InfoSupServer, log.InfoSupBase}),
              (Names{L"InfoSupdocNoteId", L"InfoSupServer", L"InfoSupBase"}));
    EXPECT_EQ(Names({log.LastName, log.TypeCall}), (Names{L"", L""}));
    EXPECT_EQ(log.Base, L"old.nsf") << "no value has five parts";
    read(twoBooks("1") + "[lotus call log description]\nInfoSupServer=\n");
    EXPECT_EQ(log.InfoSupServer, L"") << "an empty value is a value";
}

TEST_F(LotusSettings, EveryKeyOfThePersonalLog_GoesToItsField)
{
    writeIni("[lotus personnel log description]\nbase=l.nsf|s|m|t|e\nBody=1\nEvents=2\nForm=3\nTypeForm=4\n"
             "StartTime=5\nFinishTime=6\nServer=7\n");
    ReadLotusPersonalLogIni(session);
    const PersonalLogDescription& log = session.LotusPersonalLog;
    EXPECT_EQ(Names({log.Base, log.Server, log.MainView, log.ViewTel, log.ViewMail}),
              (Names{L"l.nsf", L"s", L"m", L"t", L"e"}));
    EXPECT_EQ(Names({log.Body, log.Events, log.Form, log.TypeForm, log.StartTime, log.FinishTime, log.serverItem}),
              (Names{L"1", L"2", L"3", L"4", L"5", L"6", L"7"}));
}

TEST_F(LotusSettings, PersonalLogsBaseWithFewerParts_AtAReload_StaysAsItWas_TheOtherKeysDoNot)
{
    writeIni("[lotus personnel log description]\nbase=l.nsf|s|m|t|e\nBody=1\nForm=2\n");
    ReadLotusPersonalLogIni(session);
    writeIni("[lotus personnel log description]\nbase=other.nsf|s\nBody=3\n");
    ReadLotusPersonalLogIni(session);
    const PersonalLogDescription& log = session.LotusPersonalLog;
    EXPECT_EQ(Names({log.Base, log.Server, log.MainView, log.ViewTel, log.ViewMail}),
              (Names{L"l.nsf", L"s", L"m", L"t", L"e"}));
    EXPECT_EQ(Names({log.Body, log.Form}), (Names{L"3", L""}));
}

}
