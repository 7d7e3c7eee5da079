#include "lotus/initialisation.h"

#include "common/configuration.h"
#include "common/error_trap.h"
#include "common/trace.h"
#include "lotus/installation.h"
#include "lotus/log_document.h"
#include "lotus/settings.h"

namespace hublink {

namespace {

using automation::Object;

void openSession(LotusSession& session)
{
    session.mailDatabase = Object(); // of the mail file as it was
    if (session.NotesSession) {
        showTrace(session.host, L"ReInit lotus");
        return;
    }
    session.NotesSession = Object::create(L"Notes.Notessession");
    showTrace(session.host, L"First Init lotus");
}

void exchangeEnvironment(LotusSession& session, const Object& notes)
{
    session.MailServer = notes.get(L"GETENVIRONMENTSTRING", {L"MailServer", true}).text();
    session.MailFile = notes.get(L"GETENVIRONMENTSTRING", {L"MailFile", true}).text();
    notes.call(L"SetEnvironmentVar", {L"CTI_PavexUserName", session.groupware.PavexUserName});
}

void log(LotusSession& session, const std::wstring& text)
{
    session.LotusLogText = text;
    WriteLotusLog(session, session.LotusLogText);
}

void openLog(LotusSession& session)
{
    ReadLotusPersonalLogIni(session);
    session.LogDatabase = notesDatabase(session, session.LotusPersonalLog);
    log(session, L"Read ini file " + session.host.configuration().szFileConnectorIni);
}

void openHistory(LotusSession& session)
{
    const CallLogDescription& history = session.LotusCallLog;
    if (!history.Base.empty()) session.HistoryDatabase = notesDatabase(session, history);
    log(session, L"Base Mail " + session.MailServer + L" " + session.MailFile + L"\nBase Pavex History " +
                     history.Server + L" " + history.Base + L" " + history.MainView);
}

void recordFailure(LotusSession& session)
{
    showTrace(session.host, L"Pb Init Lotus");
    session.LotusReady = false;
    session.LotusMustInit = true;
    session.NotesSession = Object();
    countInitFailure(session.groupware, session.host);
}

}

void InitLotus(LotusSession& session, NewLog newLog)
{
    if (!session.host.configuration().bgWithLotus) {
        session.LotusReady = false;
        session.LotusMustInit = true;
        return;
    }
    if (!session.LotusMustInit) return;
    const auto open = [&] {
        openSession(session);
        const Object notes = notesSession(session);
        exchangeEnvironment(session, notes);
        InstallLotusDatabases(session);
        if (newLog == NewLog::yes) session.NewLogDocument = true;
        session.LotusMustInit = false;
        openLog(session);
        ReadLotusIni(session);
        session.NotesRelease5 = notes.get(L"NotesVersion").text().find(L"Release 5") != std::wstring::npos;
        openHistory(session);
        session.LotusReady = true;
    };
    trapErrors(open, [&] { recordFailure(session); });
}

void requireLotusInitialisation(LotusSession& session)
{
    session.LotusMustInit = true;
}

void reopenLotus(LotusSession& session)
{
    requireLotusInitialisation(session);
    InitLotus(session, NewLog::no);
}

void handleNotesExit(LotusSession& session)
{
    if (session.LotusMustInit) return;
    session.LotusMustInit = true;
    session.NotesSession = Object();
}

}
