#include "link_fixture.h"

namespace hublink {

namespace {

class Attachment : public LinkFixture {};

}

TEST_F(Attachment, Start_AttachesToEverything_AndSubscribes)
{
    start();
    EXPECT_TRUE(session.PavexObj && session.LineObj && session.UserObj && session.histo && session.adressbookPavex &&
                session.hashID);
    EXPECT_TRUE(pavex.phone().attached);
    EXPECT_EQ(groupware.PavexUserName, L"Anna Keller");
    for (const auto& [object, subscribers] : pavex.subscribers()) EXPECT_EQ(subscribers, 1u) << desk::utf8(object);
}

TEST_F(Attachment, Start_EnablesTheSupervision_OnlyAfterTheInitialisation)
{
    bool early = false;
    host.onLog = [&](const std::wstring&) { early |= host.supervised; };
    start();
    EXPECT_TRUE(host.supervised);
    EXPECT_FALSE(early);
}

TEST_F(Attachment, Members_AreBoundByTheirDispatchIdentifiers_InOrder)
{
    outlook.load({});
    link.InitPavex();
    EXPECT_EQ(desk::linesOf(softphoneCalls.record()),
              (Lines{L"Application.Attached put (BOOL True)", L"Application.Line get ()", L"Application.User get ()",
                     L"User.FirstText get ()", L"User.SecondText get ()", L"Application.History get ()",
                     L"Application.AddressBook get ()"}))
        << "and no name is looked up";
}

TEST_F(Attachment, SubscribesToTheApplication_BeforeItTellsItThatItIsAttached)
{
    std::size_t subscribers = 0;
    pavex.phone().changed = [&] {
        if (pavex.phone().attached) subscribers = pavex.subscribers().at(0).second;
    };
    link.InitPavex();
    EXPECT_EQ(subscribers, 1u);
}

TEST_F(Attachment, Initialisation_LogsItsTwoLines_WithTwoBlanksBeforeOk)
{
    std::vector<bool> underWay;
    host.onLog = [&](const std::wstring&) { underWay.push_back(session.bInitConnector); };
    start();
    EXPECT_EQ(host.log, (Lines{L"Start Connector Initialization", L"Connector Initialization  Ok"}));
    EXPECT_EQ(underWay, (std::vector<bool>{true, true}));
    EXPECT_FALSE(session.bInitConnector);
}

TEST_F(Attachment, InitialisationThatAnErrorEnds_IsUnderWayNoLonger)
{
    host.onLog = [](const std::wstring&) { throw automation::AutomationError(L"WriteLog", E_FAIL); };
    start();
    EXPECT_EQ(host.log, Lines{L"Start Connector Initialization"});
    EXPECT_FALSE(session.bInitConnector);
}

TEST_F(Attachment, Initialisation_LogsItsStart_ThenPurges_ThenWalks)
{
    host.settings.bgWithRepertory = true;
    host.settings.bgWithHisto = true;
    store->insert({.idOrvel = L"1.9", .idAppli = L"A", .typApplication = 0, .collection = 1});
    store->insert({.idOrvel = L"2.9", .idAppli = L"D", .typApplication = 0, .collection = 0});
    std::vector<std::size_t> mappedAtEachLine;
    host.onLog = [&](const std::wstring&) {
        mappedAtEachLine.push_back(store->records(0).size() + store->records(1).size());
    };
    start();
    ASSERT_EQ(host.log.at(1), L"Start repertory Synchronisation ");
    EXPECT_EQ(mappedAtEachLine, (std::vector<std::size_t>{2, 0, 0, 0, 0, 0}));
}

TEST_F(Attachment, StopBeforeTheInitialisationEnds_LogsAbort)
{
    host.onLog = [&](const std::wstring&) { host.settings.gStop = true; };
    start();
    EXPECT_EQ(host.log.back(), L"Abort Connector Initialization");
}

TEST_F(Attachment, NoGroupwareReady_StillLogsItsLines_AndSynchronisesNothing)
{
    host.settings.bgWithOutlook = false;
    host.settings.bgWithRepertory = true;
    host.settings.bgWithHisto = true;
    pavex.addEntry({{}, {L"0123", L"D", L"M"}});
    start();
    EXPECT_EQ(host.log, (Lines{L"Start Connector Initialization", L"Connector Initialization  Ok"}));
    EXPECT_EQ(count(L"contact"), 0u);
}

TEST_F(Attachment, SoftphoneQuits_TheConnectorIsStopped_FromTheMessageLoop)
{
    start();
    pavex.quit();
    EXPECT_EQ(host.stops, 0) << "not inside the softphone's call";
    host.runDeferred();
    EXPECT_EQ(host.stops, 1);
}

TEST_F(Attachment, WithoutASoftphone_TheReferencesStayEmpty_AndTheInitialisationRuns)
{
    pavexFactory.reset();
    automation::server::unregisterClass(pavexClass);
    start();
    EXPECT_FALSE(session.PavexObj || session.LineObj || session.histo || session.adressbookPavex);
    EXPECT_EQ(host.log, (Lines{L"Start Connector Initialization", L"Connector Initialization  Ok"}));
    EXPECT_TRUE(host.supervised);
}

TEST_F(Attachment, SoftphoneWithoutAHistory_IsAttachedAsFarAsItGoes)
{
    softphoneCalls.faults.add(L"on Application.History fail 0x80004005");
    start();
    EXPECT_TRUE(session.LineObj && session.UserObj);
    EXPECT_FALSE(session.histo || session.adressbookPavex);
    EXPECT_TRUE(host.supervised);
}

TEST_F(Attachment, UsersSecondNameFails_TheUserHasNoName_AndNeitherListIsReached)
{
    softphoneCalls.faults.add(L"on User.SecondText fail 0x80004005");
    start();
    EXPECT_EQ(groupware.PavexUserName, L"");
    EXPECT_TRUE(session.LineObj && session.UserObj);
    EXPECT_FALSE(session.histo || session.adressbookPavex);
    EXPECT_EQ(host.log.back(), L"Connector Initialization  Ok");
}

TEST_F(Attachment, WithoutAMapServer_BothSynchronisationsEndAtTheirFirstRecord_AndTheInitialisationGoesOn)
{
    host.settings.bgWithRepertory = true;
    host.settings.bgWithHisto = true;
    pavex.addEntry({{}, {L"0123", L"D", L"M"}});
    pavex.addHistory({{}, {L"0123", L"D", L"M"}});
    mapFactory.reset();
    automation::server::unregisterClass(convid::classRegistration);
    start();
    EXPECT_FALSE(session.hashID);
    EXPECT_TRUE(outlookSession.bOutlookInit);
    EXPECT_EQ(host.log, (Lines{L"Start Connector Initialization", L"Start repertory Synchronisation ",
                               L"Pb In Repertory Synchronisation", L"start History Synchronisation ",
                               L"Pb in History Synchronisation", L"Connector Initialization  Ok"}));
    EXPECT_EQ(count(L"contact") + count(L"journal"), 0u);
}

TEST_F(Attachment, EveryInitialisation_TakesAFreshMapServerObject)
{
    start();
    const automation::Object first = session.hashID;
    link.InitConnector(NewLog::yes);
    EXPECT_NE(session.hashID.dispatch(), first.dispatch());
}

}
