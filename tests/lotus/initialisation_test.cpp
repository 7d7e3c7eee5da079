#include "lotus/initialisation.h"

#include "lotus_fixture.h"

#include <algorithm>

namespace hublink {

namespace {

class LotusInitialisation : public LotusFixture {
protected:
    using Lines = std::vector<std::wstring>;

    void init(NewLog newLog = NewLog::yes) { InitLotus(session, newLog); }

    Lines logBodies()
    {
        Lines bodies;
        for (const desk::StoreRecord& document : documents(L"log.nsf")) bodies.push_back(field(document, L"Text"));
        return bodies;
    }
};

}

TEST_F(LotusInitialisation, SwitchedOff_CreatesNoSession_AndResetsBothFlags)
{
    host.settings.bgWithLotus = false;
    host.settings.Trace = true;
    session.LotusReady = true;
    session.LotusMustInit = false;
    init();
    EXPECT_FALSE(session.LotusReady);
    EXPECT_TRUE(session.LotusMustInit);
    EXPECT_FALSE(session.NotesSession);
    EXPECT_FALSE(session.NewLogDocument);
    EXPECT_EQ(notes.recorder().calls().size(), 0u);
    EXPECT_EQ(host.messages, Lines{});
}

TEST_F(LotusInitialisation, SwitchedOffAndOnAgain_KeepsTheSessionObject_AndReinitialises)
{
    ready();
    IDispatch* const before = session.NotesSession.dispatch();
    host.settings.bgWithLotus = false;
    init(NewLog::no);
    EXPECT_EQ(session.NotesSession.dispatch(), before);
    host.settings.bgWithLotus = true;
    init(NewLog::no);
    EXPECT_TRUE(session.LotusReady);
    EXPECT_EQ(session.NotesSession.dispatch(), before);
    EXPECT_EQ(calls(L"NotesSession.SetEnvironmentVar method"), 1u);
    EXPECT_EQ(logBodies().size(), 1u) << "no new log document was asked for";
}

TEST_F(LotusInitialisation, Initialisation_CallsNotesInThisOrder)
{
    groupware.PavexUserName = L"Anna Keller";
    writeIni(describedBooks);
    init();
    const std::wstring line = L"\\n3/15/2023 12:00:00 PM ";
    const std::wstring read = line + L"Read ini file " + replaceAll(host.settings.szFileConnectorIni, L"\\", L"\\\\");
    Lines called = record();
    // What the log document's body is, a later test looks at.
    for (std::wstring& call : called) call.resize(std::min(call.find(line + L"Base"), call.size()));
    const std::wstring user = L"BSTR \"CTI_PavexUserName\", BSTR \"Anna Keller\"";
    EXPECT_EQ(called, (Lines{L"NotesSession.GetEnvironmentString method (BSTR \"MailServer\", BOOL True)",
                             L"NotesSession.GetEnvironmentString method (BSTR \"MailFile\", BOOL True)",
                             L"NotesSession.SetEnvironmentVar method (" + user + L")",
                             L"NotesSession.GetDatabase method (BSTR \"\", BSTR \"log.nsf\")",
                             L"NotesDatabase.CreateDocument method ()",
                             L"NotesDocument.Form put (BSTR \"Log\")",
                             L"NotesDocument.Type put (BSTR \"LogType\")",
                             L"NotesDocument.AppendItemValue method (BSTR \"From\", BSTR \"Connector Pavex \")",
                             L"NotesDocument.AppendItemValue method (BSTR \"Text\", BSTR \"" + read + L"\")",
                             L"NotesDocument.AppendItemValue method (BSTR \"What\", BSTR \"Connector Pavex \")",
                             L"NotesDocument.AppendItemValue method (BSTR \"Start\", DATE 2023-03-15 12:00:00)",
                             L"NotesDocument.Save method (BOOL True, BOOL True)",
                             L"NotesDocument.GetItemValue method (BSTR \"Text\")",
                             L"NotesDocument.RemoveItem method (BSTR \"Text\")",
                             L"NotesDocument.AppendItemValue method (BSTR \"Text\", BSTR \"" + read,
                             L"NotesDocument.AppendItemValue method (BSTR \"Finish\", DATE 2023-03-15 12:00:00)",
                             L"NotesDocument.Save method (BOOL True, BOOL True)",
                             L"NotesSession.NotesVersion get ()",
                             L"NotesSession.GetDatabase method (BSTR \"\", BSTR \"pavexhistory.nsf\")",
                             L"NotesDocument.GetItemValue method (BSTR \"Text\")",
                             L"NotesDocument.RemoveItem method (BSTR \"Text\")",
                             L"NotesDocument.AppendItemValue method (BSTR \"Text\", BSTR \"" + read,
                             L"NotesDocument.AppendItemValue method (BSTR \"Finish\", DATE 2023-03-15 12:00:00)",
                             L"NotesDocument.Save method (BOOL True, BOOL True)"}));
}

TEST_F(LotusInitialisation, Initialisation_SpellsTheNamesAsNotesUsersDo)
{
    writeIni(describedBooks);
    init();
    Lines names;
    for (const desk::RecordedCall& call : notes.recorder().calls())
        if (call.kind == desk::CallKind::lookup && std::find(names.begin(), names.end(), call.member) == names.end())
            names.push_back(call.member);
    EXPECT_EQ(names, (Lines{L"GETENVIRONMENTSTRING", L"SetEnvironmentVar", L"GETDATABASE", L"CREATEDOCUMENT", L"Form",
                            L"Type", L"AppendItemValue", L"save", L"GetItemValue", L"RemoveItem", L"NotesVersion"}));
}

TEST_F(LotusInitialisation, Initialisation_WritesTwoLinesAndTheDump_IntoANewLogDocument)
{
    ready("[lotus]\nNbPublicAddressBook=1\nOrder=1\n[lotus base description 1]\nbase=a.nsf|s|m|t|e\nLastName=L\n"
          "[lotus call log description]\nbase=h.nsf|hs|hm|ht|he\n"
          "[lotus personnel log description]\nbase=log.nsf||||\nBody=Text\nEvents=What\nForm=Log\nTypeForm=LogType\n"
          "StartTime=Start\nFinishTime=Finish\nServer=From\n");
    ASSERT_EQ(logBodies().size(), 1u);
    EXPECT_EQ(logBodies()[0], L"\n3/15/2023 12:00:00 PM Read ini file " + host.settings.szFileConnectorIni +
                                  L"\n3/15/2023 12:00:00 PM Base 0\nServer=s\nBase=a.nsf\nMainView=m\nView (mail)=e\n"
                                  L"View (Tel)=t\nFirstName=\nLastName=L\nFullName=\nPhoneNumber=\nMail=\nForm=\n"
                                  L"Type=\n"
                                  L"\n3/15/2023 12:00:00 PM Base Mail CN=Mail1/O=Acme mail\\akeller.nsf\n"
                                  L"Base Pavex History hs h.nsf hm");
    EXPECT_EQ(session.LotusLogText, L"Base Mail CN=Mail1/O=Acme mail\\akeller.nsf\nBase Pavex History hs h.nsf hm");
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
}

TEST_F(LotusInitialisation, Initialisation_FillsTheSession)
{
    ready();
    EXPECT_FALSE(session.LotusMustInit);
    EXPECT_FALSE(session.NewLogDocument);
    EXPECT_EQ(session.MailServer, L"CN=Mail1/O=Acme");
    EXPECT_EQ(session.MailFile, L"mail\\akeller.nsf");
    EXPECT_EQ(session.HistoryDatabase.get(L"FilePath").text(), L"pavexhistory.nsf");
    EXPECT_EQ(session.LogDatabase.get(L"FilePath").text(), L"log.nsf");
    EXPECT_EQ(session.LotusAddressBooks.size(), 2u);
    EXPECT_EQ(groupware.nbInitFailure, 0);
    EXPECT_EQ(host.messages, Lines{}) << "the trace is off";
}

TEST_F(LotusInitialisation, Initialisation_TellsNotesTheSoftphonesUser)
{
    groupware.PavexUserName = L"Durand Marc";
    ready();
    EXPECT_EQ(session.NotesSession.get(L"GetEnvironmentString", {L"CTI_PavexUserName"}).text(), L"Durand Marc");
}

TEST_F(LotusInitialisation, NotesRelease5_IsToldByTheVersionsExactText)
{
    const struct {
        const wchar_t* version;
        bool is5;
    } versions[] = {{L"Release 5.0.8 |June 18, 2001", true},
                    {L"Build 2, Release 5", true},
                    {L"Release 8.5.3|September 15, 2011", false},
                    {L"release 5.0", false},
                    {L"", false}};
    for (const auto& each : versions) {
        notes.model().version = each.version;
        session.NotesRelease5 = !each.is5;
        session.LotusMustInit = true;
        ready();
        EXPECT_EQ(session.NotesRelease5, each.is5) << automation::toAnsi(each.version);
    }
}

TEST_F(LotusInitialisation, CallLogWithoutABaseFile_OpensNoHistoryDatabase_AndIsReadyAllTheSame)
{
    ready("[lotus personnel log description]\nbase=log.nsf||||\nBody=Text\nEvents=What\nForm=Log\nTypeForm=LogType\n"
          "StartTime=Start\nFinishTime=Finish\nServer=From\n");
    EXPECT_FALSE(session.HistoryDatabase);
    EXPECT_EQ(session.LotusLogText, L"Base Mail CN=Mail1/O=Acme mail\\akeller.nsf\nBase Pavex History   ");
}

TEST_F(LotusInitialisation, SettingsThatEndAtAnError_LeaveBothLogLines)
{
    ready();
    session.LotusMustInit = true;
    ready("[lotus]\nNbPublicAddressBook=abc\n[lotus personnel log description]\nbase=log.nsf||||\nBody=Text\n"
          "Events=What\nForm=Log\nTypeForm=LogType\nStartTime=Start\nFinishTime=Finish\nServer=From\n");
    EXPECT_EQ(logBodies().at(1), L"\n3/15/2023 12:00:00 PM Read ini file " + host.settings.szFileConnectorIni +
                                     L"\n3/15/2023 12:00:00 PM Base Mail CN=Mail1/O=Acme mail\\akeller.nsf\n"
                                     L"Base Pavex History  pavexhistory.nsf Calls");
}

TEST_F(LotusInitialisation, SecondInitialisation_DoesNothing_WhileNoneIsWanted)
{
    ready();
    host.settings.Trace = true;
    writeIni("");
    init();
    EXPECT_EQ(notes.recorder().calls().size(), 0u);
    EXPECT_FALSE(session.NewLogDocument);
    EXPECT_EQ(session.LotusAddressBooks.size(), 2u);
    EXPECT_EQ(host.messages, Lines{});
}

TEST_F(LotusInitialisation, Reinitialisation_OpensANewLogDocument_OnlyWhenAskedTo)
{
    ready();
    session.LotusMustInit = true;
    init(NewLog::no);
    ASSERT_EQ(logBodies().size(), 1u);
    session.LotusMustInit = true;
    init(NewLog::yes);
    ASSERT_EQ(logBodies().size(), 2u);
    const std::wstring start = L"\n3/15/2023 12:00:00 PM Read ini file ";
    EXPECT_TRUE(logBodies()[1].starts_with(start));
    EXPECT_NE(logBodies()[0].find(start, 1), std::wstring::npos) << "the second reading is in the first document";
}

TEST_F(LotusInitialisation, NewDocumentAskedForBeforehand_StaysAskedFor)
{
    session.NewLogDocument = true;
    writeIni(describedBooks);
    notes.ask(L"available log.nsf off");
    init(NewLog::no);
    EXPECT_TRUE(session.NewLogDocument);
}

TEST_F(LotusInitialisation, WithTrace_TheFirstInitialisationAndTheNextAreShown)
{
    host.settings.Trace = true;
    host.onMessage = [this](const std::wstring&) {
        EXPECT_TRUE(session.NotesSession) << "the session object comes first";
        EXPECT_EQ(notes.recorder().calls().size(), 0u) << "everything else after it";
        EXPECT_TRUE(session.LotusMustInit);
    };
    ready();
    EXPECT_EQ(host.messages, Lines{L"First Init lotus"});
    session.LotusMustInit = true;
    init();
    EXPECT_EQ(host.messages, (Lines{L"First Init lotus", L"ReInit lotus"}));
}

TEST_F(LotusInitialisation, BusyOnceAtEveryCall_LosesNothing)
{
    ready();
    const Lines undisturbed = logBodies();
    session.LotusMustInit = true;
    init();
    const std::size_t count = notes.recorder().calls().size();
    ASSERT_GT(count, 20u);
    for (std::size_t n = 1; n <= count; ++n) {
        notes.load(notesDatabases);
        session.LotusMustInit = true;
        forgetCalls();
        fault(L"at " + std::to_wstring(n) + L" busy");
        init();
        EXPECT_TRUE(session.LotusReady) << n;
        EXPECT_EQ(logBodies(), undisturbed) << n;
    }
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
}

}
