// Reading the ini file's general sections.
#include "form_fixture.h"

namespace hublink {

using shell_tests::iniText;

namespace {

class ConnectorIni : public shell_tests::FormFixture {
protected:
    ConnectorIni()
    {
        writeIni(iniText());
        load();
    }

    bool read(const std::string& content)
    {
        writeIni(content);
        return form().ini().ReadConnectorIni();
    }

    // Reads with one line more in "Application", in "AllApplication".
    bool readApplication(const std::string& line) { return read(iniText(line + "\r\n")); }
    bool readFeature(const std::string& line) { return read(iniText("", line + "\r\n")); }
    bool readType(const std::string& lines) { return read(iniText("", "", lines + "\r\n")); }
};

struct Feature {
    const char* key;
    bool Configuration::* value;
};

constexpr Feature features[] = {
    {"PopUp", &Configuration::bgWithPopUp},
    {"NewContact", &Configuration::bgSetNewContact},
    {"Histo", &Configuration::bgWithHisto},
    {"Repertory", &Configuration::bgWithRepertory},
    {"CallBackMail", &Configuration::bgWithCallBackMail},
};

}

TEST_F(ConnectorIni, MissingKeys_TakeTheirDefaults)
{
    read(iniText("trace=true\r\ntempo=1\r\ntempo1=2\r\nTryCnxNumber=0\r\n",
                 "PopUp=true\r\nNewContact=true\r\nHisto=true\r\nRepertory=true\r\nCallBackMail=true\r\n"));
    read(iniText());
    EXPECT_FALSE(configuration().gStop);
    EXPECT_FALSE(configuration().Trace);
    EXPECT_EQ(configuration().tempo, 200);
    EXPECT_EQ(configuration().tempo1, 20);
    EXPECT_EQ(configuration().gnb_echec, -1);
    for (const Feature& feature : features) EXPECT_FALSE(configuration().*feature.value) << feature.key;
}

TEST_F(ConnectorIni, Features_AreReadEachFromItsOwnKey)
{
    for (const Feature& feature : features) {
        readFeature(std::string(feature.key) + "=true");
        for (const Feature& other : features)
            EXPECT_EQ(configuration().*other.value, &other == &feature) << feature.key << " " << other.key;
    }
}

TEST_F(ConnectorIni, Switches_AreOnForTheExactTextOnly)
{
    for (const Feature& feature : features) {
        for (const char* text : {"True", "TRUE", "1", "yes", "true,", "\" true\"", ""}) {
            readFeature(std::string(feature.key) + "=true");
            EXPECT_TRUE(configuration().*feature.value) << feature.key;
            readFeature(std::string(feature.key) + "=" + text);
            EXPECT_FALSE(configuration().*feature.value) << feature.key << "=" << text;
        }
    }
}

TEST_F(ConnectorIni, FeatureInTheWrongSection_IsNotRead)
{
    readApplication("PopUp=true");
    EXPECT_FALSE(configuration().bgWithPopUp);
    readFeature("trace=true");
    EXPECT_FALSE(configuration().Trace);
}

TEST_F(ConnectorIni, Trace_IsOnForTheExactTextOnly)
{
    readApplication("trace=true");
    EXPECT_TRUE(configuration().Trace);
    readApplication("trace=True");
    EXPECT_FALSE(configuration().Trace);
}

TEST_F(ConnectorIni, Pauses_AreWholeNumbersOf16Bits)
{
    readApplication("tempo=32767\r\ntempo1=-5");
    EXPECT_EQ(configuration().tempo, 32767);
    EXPECT_EQ(configuration().tempo1, -5);
    readApplication("tempo=2.5\r\ntempo1= +3.5 ");
    EXPECT_EQ(configuration().tempo, 2);
    EXPECT_EQ(configuration().tempo1, 4);
}

TEST_F(ConnectorIni, TryCnxNumberOf3Or10_IsTrue_AndOf0False)
{
    readApplication("TryCnxNumber=3");
    EXPECT_EQ(configuration().gnb_echec, -1);
    readApplication("TryCnxNumber=0");
    EXPECT_EQ(configuration().gnb_echec, 0);
    readApplication("TryCnxNumber=10");
    EXPECT_EQ(configuration().gnb_echec, -1);
    readApplication("TryCnxNumber=-1");
    EXPECT_EQ(configuration().gnb_echec, -1);
    readApplication("TryCnxNumber=0.4");
    EXPECT_EQ(configuration().gnb_echec, 0);
}

TEST_F(ConnectorIni, TypeOutlookAndLotus_SetsBoth)
{
    readType("type=OUTLOOK,LOTUS");
    EXPECT_TRUE(configuration().bgWithOutlook);
    EXPECT_TRUE(configuration().bgWithLotus);
}

TEST_F(ConnectorIni, TypeWithABlankAfterTheComma_SetsTheFirstOnly)
{
    readType("type=LOTUS, OUTLOOK");
    EXPECT_TRUE(configuration().bgWithLotus);
    EXPECT_FALSE(configuration().bgWithOutlook);
}

TEST_F(ConnectorIni, TypeWithUnknownElements_SetsTheKnownOnes)
{
    readType("type=,EXCHANGE,OUTLOOK,");
    EXPECT_TRUE(configuration().bgWithOutlook);
    EXPECT_FALSE(configuration().bgWithLotus);
    EXPECT_FALSE(configuration().gStop);
}

TEST_F(ConnectorIni, TypeInLowerCase_SetsNeither_AndStops)
{
    EXPECT_FALSE(readType("type=outlook"));
    EXPECT_FALSE(configuration().bgWithOutlook);
    EXPECT_FALSE(configuration().bgWithLotus);
    EXPECT_TRUE(configuration().gStop);
}

TEST_F(ConnectorIni, Type1_ReplacesType)
{
    readType("type=OUTLOOK\r\ntype1=LOTUS");
    EXPECT_TRUE(configuration().bgWithLotus);
    EXPECT_FALSE(configuration().bgWithOutlook);
    EXPECT_FALSE(configuration().gStop);
}

TEST_F(ConnectorIni, EmptyType1_LeavesTheResultOfType)
{
    readType("type=OUTLOOK\r\ntype1=");
    EXPECT_TRUE(configuration().bgWithOutlook);
    EXPECT_FALSE(configuration().gStop);
}

TEST_F(ConnectorIni, Type1WithoutAGroupware_StopsInSpiteOfType)
{
    EXPECT_FALSE(readType("type=OUTLOOK,LOTUS\r\ntype1=none"));
    EXPECT_TRUE(configuration().gStop);
}

TEST_F(ConnectorIni, NoGroupware_LeavesTheRemainingKeysUnread)
{
    read(iniText("tempo=111\r\n", "PopUp=true\r\n"));
    EXPECT_FALSE(read("[Application]\r\ntrace=true\r\ntempo=222\r\n[AllApplication]\r\n"));
    EXPECT_TRUE(configuration().Trace) << "read before the groupware";
    EXPECT_EQ(configuration().tempo, 111);
    EXPECT_TRUE(configuration().bgWithPopUp);
    EXPECT_TRUE(configuration().gStop);
}

TEST_F(ConnectorIni, Kill_StopsIsWrittenBack_AndLeavesEverythingElseUnread)
{
    EXPECT_FALSE(read(iniText("kill=true\r\ntrace=true\r\ntempo=222\r\n", "", "type=LOTUS\r\n")));
    EXPECT_TRUE(configuration().gStop);
    EXPECT_EQ(iniValue("Application", "kill"), L"false");
    EXPECT_FALSE(configuration().Trace);
    EXPECT_FALSE(configuration().bgWithLotus);
    EXPECT_EQ(configuration().tempo, 200);
}

TEST_F(ConnectorIni, KillInAnotherSpelling_StopsNothing)
{
    EXPECT_TRUE(readApplication("kill=True"));
    EXPECT_FALSE(configuration().gStop);
    EXPECT_EQ(iniValue("Application", "kill"), L"True");
}

TEST_F(ConnectorIni, UnchangedSwitches_GiveTrue)
{
    const std::string all = iniText("", "PopUp=true\r\nNewContact=true\r\nRepertory=true\r\nCallBackMail=true\r\n");
    EXPECT_FALSE(read(all));
    EXPECT_TRUE(read(all));
}

TEST_F(ConnectorIni, ChangeOfEachComparedSwitch_GivesFalse)
{
    for (const char* key : {"PopUp", "NewContact", "Repertory", "CallBackMail"}) {
        EXPECT_FALSE(readFeature(std::string(key) + "=true")) << key << " on";
        EXPECT_TRUE(readFeature(std::string(key) + "=true")) << key << " unchanged";
        EXPECT_FALSE(readFeature("")) << key << " off";
    }
    EXPECT_FALSE(readType("type=OUTLOOK,LOTUS")) << "Lotus on";
    EXPECT_FALSE(readType("type=LOTUS")) << "Outlook off";
}

TEST_F(ConnectorIni, ChangeOfHistoAlone_GivesTrue)
{
    EXPECT_TRUE(readFeature("Histo=true"));
    EXPECT_TRUE(configuration().bgWithHisto);
    EXPECT_TRUE(readFeature("Histo=false"));
    EXPECT_FALSE(configuration().bgWithHisto);
}

TEST_F(ConnectorIni, ChangeOfTraceAndPausesAlone_GivesTrue)
{
    EXPECT_TRUE(readApplication("trace=true\r\ntempo=1\r\ntempo1=2\r\nTryCnxNumber=0"));
}

TEST_F(ConnectorIni, NonNumericTempo_EndsTheReadingWithTheRestUnchanged)
{
    read(iniText("tempo=111\r\ntempo1=11\r\nTryCnxNumber=0\r\n", "PopUp=true\r\n"));
    for (const char* text : {"abc", "", "12abc", "70000"}) {
        EXPECT_FALSE(read(iniText(std::string("tempo=") + text + "\r\ntempo1=22\r\n"))) << text;
        EXPECT_EQ(configuration().tempo, 111) << text;
        EXPECT_EQ(configuration().tempo1, 11) << text;
        EXPECT_EQ(configuration().gnb_echec, 0) << text;
        EXPECT_TRUE(configuration().bgWithPopUp) << text;
        EXPECT_FALSE(configuration().gStop) << text;
    }
}

TEST_F(ConnectorIni, NonNumericTempo1OrTryCnxNumber_EndsTheReadingThere)
{
    read(iniText("tempo=111\r\ntempo1=11\r\nTryCnxNumber=0\r\n", "PopUp=true\r\n"));
    EXPECT_FALSE(readApplication("tempo=222\r\ntempo1=abc\r\nTryCnxNumber=3"));
    EXPECT_EQ(configuration().tempo, 222);
    EXPECT_EQ(configuration().tempo1, 11);
    EXPECT_EQ(configuration().gnb_echec, 0);
    EXPECT_FALSE(readApplication("tempo=223\r\ntempo1=33\r\nTryCnxNumber=many"));
    EXPECT_EQ(configuration().tempo1, 33);
    EXPECT_EQ(configuration().gnb_echec, 0);
    EXPECT_TRUE(configuration().bgWithPopUp);
}

TEST_F(ConnectorIni, MissingFile_Stops)
{
    DeleteFileW(iniPath().c_str());
    EXPECT_FALSE(form().ini().ReadConnectorIni());
    EXPECT_TRUE(configuration().gStop);
}

}
