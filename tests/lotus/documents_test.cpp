#include "lotus/documents.h"

#include "lotus_fixture.h"

namespace hublink {

namespace {

class LotusDocuments : public LotusFixture {
protected:
    automation::Object database(const wchar_t* server, const wchar_t* file)
    {
        return notes.create(L"Notes.NotesSession").get(L"GetDatabase", {server, file}).object();
    }

    automation::Object document(const std::wstring& universalId)
    {
        return database(L"", L"names.nsf").get(L"GetDocumentByUNID", {universalId}).object();
    }

    bool isCurrent(const automation::Object& document) { return IsCurrentDocument(document, shown); }

    automation::Object shown;
};

class LotusSameDatabase : public LotusDocuments {
protected:
    LotusSameDatabase()
    {
        notes.load(L"[database]\nServer=CN=Mail1/OU=Paris/O=Acme\nFile=Books\\\\Company.nsf\n"
                   L"[database]\nFile=names.nsf\n");
        company = database(L"Mail1/Paris/Acme", L"books\\company.nsf");
        local = database(L"", L"names.nsf");
    }

    automation::Object company;
    automation::Object local;
};

}

TEST_F(LotusDocuments, DocumentInFront_IsCurrent_AndItsWindowIsGiven)
{
    const std::wstring durand = add(L"names.nsf", L"Form=Person\nLastName=Durand\n");
    const std::wstring abel = add(L"names.nsf", L"Form=Person\nLastName=Abel\n");
    EXPECT_FALSE(isCurrent(document(durand))) << "nothing is open";
    EXPECT_FALSE(shown);
    notes.ask(L"open " + abel);
    EXPECT_FALSE(isCurrent(document(durand)));
    EXPECT_TRUE(shown) << "the window in front is told all the same";
    notes.ask(L"open " + durand);
    EXPECT_TRUE(isCurrent(document(durand)));
    EXPECT_EQ(shown.get(L"Document").object().get(L"UniversalID").text(), durand);
    EXPECT_FALSE(isCurrent(document(abel))) << "open, but behind";
}

TEST_F(LotusDocuments, NoDocumentInFrontAnyMore_EmptiesTheWindowReference)
{
    const std::wstring durand = add(L"names.nsf", L"Form=Person\nLastName=Durand\n");
    notes.ask(L"open " + durand);
    EXPECT_TRUE(isCurrent(document(durand)));
    notes.ask(L"close " + durand);
    EXPECT_FALSE(isCurrent(document(durand)));
    EXPECT_FALSE(shown);
}

TEST_F(LotusDocuments, FailureAtAnyCall_MeansNotCurrent)
{
    const automation::Object durand = document(add(L"names.nsf", L"Form=Person\nLastName=Durand\n"));
    notes.ask(L"open " + durand.get(L"UniversalID").text());
    for (const wchar_t* call :
         {L"NotesUIWorkspace.CurrentDocument", L"NotesUIDocument.Document", L"NotesDocument.NoteID"}) {
        forgetCalls();
        fault(std::wstring(L"on ") + call + L" fail 0x80004005");
        trapped.procedures.clear();
        EXPECT_FALSE(isCurrent(durand));
        EXPECT_EQ(trapped.procedures, std::vector<std::wstring>{L"IsCurrentDocument"});
    }
    forgetCalls();
    EXPECT_TRUE(isCurrent(durand));
    EXPECT_FALSE(isCurrent(automation::Object())) << "no document at all";
}

TEST_F(LotusSameDatabase, ServerInAnyWriting_AndPathOrFileName_AreTheSame)
{
    for (const wchar_t* server : {L"CN=Mail1/OU=Paris/O=Acme", L"cn=MAIL1/ou=PARIS/o=ACME", L"mail1/OU=paris/acme"})
        for (const wchar_t* file : {L"books\\company.nsf", L"BOOKS\\COMPANY.NSF", L"company.nsf", L"Company.NSF"})
            EXPECT_TRUE(IsSameDatabase(company, server, file))
                << automation::toAnsi(server) << automation::toAnsi(file);
    EXPECT_TRUE(IsSameDatabase(local, L"", L"Names.nsf"));
}

TEST_F(LotusSameDatabase, OtherServerOrFile_IsAnother)
{
    EXPECT_FALSE(IsSameDatabase(company, L"CN=Mail2/OU=Paris/O=Acme", L"company.nsf"));
    EXPECT_FALSE(IsSameDatabase(company, L"", L"company.nsf"));
    EXPECT_FALSE(IsSameDatabase(company, L"Mail1/Paris/Acme", L"company.nsf")) << "the OU= marker stays";
    EXPECT_FALSE(IsSameDatabase(company, L"CN=Mail1/OU=Paris/O=Acme", L"other\\company.nsf"));
    EXPECT_FALSE(IsSameDatabase(company, L"CN=Mail1/OU=Paris/O=Acme", L"company"));
    EXPECT_FALSE(IsSameDatabase(company, L"CN=Mail1/OU=Paris/O=Acme", L""));
    EXPECT_FALSE(IsSameDatabase(local, L"CN=Mail1/OU=Paris/O=Acme", L"names.nsf"));
}

TEST_F(LotusSameDatabase, Markers_AreTakenOutWhereverTheyStand_FirstCNThenO)
{
    notes.load(L"[database]\nServer=CN=COCN==Acme\nFile=names.nsf\n");
    local = database(L"CN=COCN==Acme", L"names.nsf");
    EXPECT_TRUE(IsSameDatabase(local, L"cacme", L"names.nsf"));
}

TEST_F(LotusSameDatabase, SeveralComparisons_AskForEachNameOnce)
{
    notes.recorder().clear();
    const DatabaseNames names(company);
    EXPECT_FALSE(IsSameDatabase(names, L"CN=Mail1/OU=Paris/O=Acme", L"other.nsf"));
    EXPECT_FALSE(IsSameDatabase(names, L"", L"company.nsf"));
    EXPECT_TRUE(IsSameDatabase(names, L"CN=Mail1/OU=Paris/O=Acme", L"company.nsf"));
    for (const wchar_t* name : {L"Server", L"FilePath", L"FileName"})
        EXPECT_EQ(notes.recorder().count(L"NotesDatabase." + std::wstring(name) + L" get"), 1u);
}

TEST_F(LotusSameDatabase, Failure_MeansAnother)
{
    fault(L"on NotesDatabase.Server fail 0x80004005");
    EXPECT_FALSE(IsSameDatabase(local, L"", L"names.nsf"));
    EXPECT_EQ(trapped.procedures, std::vector<std::wstring>{L"IsSameDatabase"});
    EXPECT_FALSE(IsSameDatabase(automation::Object(), L"", L"names.nsf"));
}

TEST_F(LotusDocuments, ShownDocumentWithoutAStoredOne_IsNotCurrent_ButItsWindowIsGiven)
{
    const std::wstring durand = add(L"names.nsf", L"Form=Person\nLastName=Durand\n");
    notes.ask(L"open " + durand);
    const automation::Object stored = document(durand);
    fault(L"on NotesUIDocument.Document answer Nothing");
    EXPECT_FALSE(isCurrent(stored));
    EXPECT_TRUE(shown);
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
}

}
