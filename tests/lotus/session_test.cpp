#include "lotus/session.h"

#include "lotus_fixture.h"

namespace {

using LotusSessionTest = LotusTest;

}

TEST_F(LotusSessionTest, SwitchedOff_CreatesNoSession_AndResetsBothFlags)
{
    host.settings.bgWithLotus = false;
    session.LotusReady = true;
    session.LotusMustInit = false;
    InitLotus(session, true);
    EXPECT_FALSE(session.LotusReady);
    EXPECT_TRUE(session.LotusMustInit);
    EXPECT_FALSE(session.NotesSession);
    EXPECT_EQ(notes.recorder().calls().size(), 0u);
}

TEST_F(LotusSessionTest, Initialisation_MakesItReady_AndTrapsNoError)
{
    ready();
    EXPECT_FALSE(session.LotusMustInit);
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
}
