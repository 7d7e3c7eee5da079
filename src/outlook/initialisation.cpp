#include "outlook/initialisation.h"

#include "common/configuration.h"
#include "common/dictionary.h"
#include "common/error_trap.h"
#include "common/trace.h"
#include "outlook/settings.h"

#include <utility>

namespace hublink {

namespace {

using automation::Object;

void openApplication(OutlookSession& session)
{
    if (session.OutlookApp) {
        showTrace(session.host, L"ReInit Outlook");
        return;
    }
    session.OutlookApp = Object::create(L"outlook.application");
    session.idCaches = OutlookIdCaches();
    showTrace(session.host, L"First Init Outlook");
}

Object defaultFolder(const Object& nameSpace, OutlookFolder folder)
{
    return nameSpace.get(L"GetDefaultFolder", {static_cast<std::int16_t>(folder)}).object();
}

void openFolders(OutlookSession& session)
{
    const Object outlook = session.OutlookApp;
    const Object nameSpace = outlook.get(L"GetNamespace", {L"MAPI"}).object();
    session.OutlookNameSpace = nameSpace;
    session.OutlookContacts = defaultFolder(nameSpace, OutlookFolder::contacts);
    session.OutlookInbox = defaultFolder(nameSpace, OutlookFolder::inbox);
    session.OutlookJournal = defaultFolder(nameSpace, OutlookFolder::journal);
}

void loadDictionary(OutlookSession& session)
{
    if (session.nLanguage != 0) session.dictionary.LoadDicoSelected(session.nLanguage);
    else session.dictionary.LoadDico();
}

void recordFailure(OutlookSession& session)
{
    showTrace(session.host, L"Pb Init Outlook");
    session.OutlookApp = Object();
    session.bOutlookInit = false;
    countInitFailure(session.groupware, session.host);
}

}

void InitOutlook(OutlookSession& session)
{
    if (!session.host.configuration().bgWithOutlook) {
        session.bOutlookInit = false;
        return;
    }
    if (session.bOutlookInit) return;
    const auto open = [&] {
        ReadOutlookIni(session);
        openApplication(session);
        openFolders(session);
        session.tablesAreGuarded = false;
        session.answerCache.entries.clear();
        loadDictionary(session);
        session.bOutlookInit = true;
    };
    trapErrors(open, [&] { recordFailure(session); });
}

void reopenOutlook(OutlookSession& session)
{
    session.bOutlookInit = false;
    InitOutlook(session);
}

void handleOutlookExit(OutlookSession& session)
{
    if (!session.bOutlookInit) return;
    session.bOutlookInit = false;
    session.OutlookApp = Object();
}

void quitOutlook(OutlookSession& session)
{
    if (!std::exchange(session.bOutlookInit, false) || !session.bQuitOutlook) return;
    const Object outlook = session.OutlookApp;
    outlook.call(L"quit");
}

}
