// The ini file's general sections, read without a form.
#include "common/connector_settings.h"

#include "automation/error.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

namespace hublink {

namespace {

class ConnectorSettings : public testing::Test {
protected:
    IniFile with(std::string_view content) const { return IniFile(folder.write(L"test.ini", content)); }

    const support::ScratchFolder folder;
    Configuration configuration;
};

}

TEST_F(ConnectorSettings, EveryKey_IsRead)
{
    readConnectorSettings(with("[Application]\r\ntrace=true\r\ntype=LOTUS,OUTLOOK\r\ntempo=1\r\ntempo1=2\r\n"
                               "[AllApplication]\r\nPopUp=true\r\nNewContact=true\r\nHisto=true\r\n"
                               "Repertory=true\r\nCallBackMail=true\r\n"),
                          configuration);
    EXPECT_TRUE(configuration.Trace);
    EXPECT_TRUE(configuration.bgWithLotus && configuration.bgWithOutlook);
    EXPECT_EQ(configuration.tempo, 1);
    EXPECT_EQ(configuration.tempo1, 2);
    EXPECT_EQ(configuration.gnb_echec, -1);
    EXPECT_TRUE(configuration.bgWithPopUp && configuration.bgSetNewContact && configuration.bgWithHisto);
    EXPECT_TRUE(configuration.bgWithRepertory && configuration.bgWithCallBackMail);
}

TEST_F(ConnectorSettings, FileWithoutAGroupware_IsReadNoFurther)
{
    configuration.bgWithOutlook = true;
    readConnectorSettings(with("[Application]\r\ntrace=true\r\ntype=none\r\ntempo=1\r\n"), configuration);
    EXPECT_TRUE(configuration.Trace);
    EXPECT_FALSE(usesGroupware(configuration));
    EXPECT_EQ(configuration.tempo, 0);
}

TEST_F(ConnectorSettings, NumberThatIsNone_IsTheReadersError_AndWhatStoodBeforeItIsRead)
{
    const IniFile ini = with("[Application]\r\ntype=LOTUS\r\ntempo=1\r\ntempo1=some\r\nTryCnxNumber=0\r\n");
    EXPECT_THROW(readConnectorSettings(ini, configuration), automation::AutomationError);
    EXPECT_TRUE(usesGroupware(configuration));
    EXPECT_EQ(configuration.tempo, 1);
    EXPECT_EQ(configuration.tempo1, 0);
}

TEST_F(ConnectorSettings, StopRequest_IsReadAndTakenBack)
{
    const IniFile ini = with("[Application]\r\nkill=true\r\n");
    EXPECT_TRUE(isStopRequestReadable(ini) && isStopRequested(ini));
    EXPECT_TRUE(clearStopRequest(ini));
    EXPECT_TRUE(isStopRequestReadable(ini));
    EXPECT_FALSE(isStopRequested(ini));
}

TEST_F(ConnectorSettings, FileWithoutKill_DoesNotTellWhetherToStop)
{
    for (const char* content : {"[Application]\r\n", "[Application]\r\nkill=\r\n"}) {
        EXPECT_FALSE(isStopRequestReadable(with(content)));
        EXPECT_FALSE(isStopRequested(with(content)));
    }
}

}
