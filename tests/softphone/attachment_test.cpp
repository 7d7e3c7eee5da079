#include "link_test.h"

namespace {

class Attachment : public LinkTest {};

using Lines = std::vector<std::wstring>;

}

TEST_F(Attachment, Start_AttachesToEverything_AndSubscribes)
{
    start();
    EXPECT_TRUE(link.PavexObj && link.LineObj && link.UserObj && link.histo && link.adressbookPavex && link.hashID);
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
                     L"Application.AddressBook get ()"})) << "and no name is looked up";
}

TEST_F(Attachment, Initialisation_LogsItsTwoLines_WithTwoBlanksBeforeOk)
{
    start();
    EXPECT_EQ(host.log, (Lines{L"Start Connector Initialization", L"Connector Initialization  Ok"}));
    EXPECT_FALSE(link.bInitConnector);
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
    EXPECT_FALSE(link.PavexObj || link.LineObj || link.histo || link.adressbookPavex);
    EXPECT_EQ(host.log, (Lines{L"Start Connector Initialization", L"Connector Initialization  Ok"}));
    EXPECT_TRUE(host.supervised);
}

TEST_F(Attachment, SoftphoneWithoutAHistory_IsAttachedAsFarAsItGoes)
{
    softphoneCalls.faults.add(L"on Application.History fail 0x80004005");
    start();
    EXPECT_TRUE(link.LineObj && link.UserObj);
    EXPECT_FALSE(link.histo || link.adressbookPavex);
    EXPECT_TRUE(host.supervised);
}

TEST_F(Attachment, WithoutAMapServer_TheInitialisationGoesOn_AndTheMapStaysEmpty)
{
    mapFactory.reset();
    automation::server::unregisterClass(convid::classRegistration);
    start();
    EXPECT_FALSE(link.hashID);
    EXPECT_TRUE(session.bOutlookInit);
    EXPECT_EQ(host.log.back(), L"Connector Initialization  Ok");
}

TEST_F(Attachment, EveryInitialisation_TakesAFreshMapServerObject)
{
    start();
    const automation::Object first = link.hashID;
    link.InitConnector(true);
    EXPECT_NE(link.hashID.dispatch(), first.dispatch());
}
