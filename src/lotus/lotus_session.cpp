#include "lotus/lotus_session.h"

#include "automation/error.h"

namespace hublink {

using automation::Object;

Object notesSession(const LotusSession& session)
{
    if (!session.NotesSession) throw automation::AutomationError(L"NotesSession", automation::objectNotSet);
    return session.NotesSession;
}

Object notesDatabase(const LotusSession& session, const LotusBaseRef& base)
{
    return notesSession(session).get(L"GETDATABASE", {base.Server, base.Base}).object();
}

Object notesWorkspace()
{
    return Object::create(L"Notes.NotesUIWorkspace");
}

}
