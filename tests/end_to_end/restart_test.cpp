// Programs that are restarted at once: their next process is there before a tick
// could have seen that they were gone.
#include "notes_desk_fixture.h"

namespace {

class Restart : public NotesDeskFixture {
protected:
    // A tick sees which process runs; after the restart one drops the session, the
    // next one opens it again.
    template <class Action>
    void betweenTicks(Action restart)
    {
        tick();
        settle();
        restart();
        for (int n = 0; n < 2; ++n) {
            tick();
            settle();
        }
    }
};

constexpr std::string_view marc = "[contact]\nFirstName=Marc\nLastName=Durand\nBusinessTelephoneNumber=0123\n";

}

TEST_F(Restart, OutlookRestartedAtOnce_ItsSessionIsOpenedAgain_AndACallIsServed)
{
    start(marc);
    betweenTicks([&] { desk.restartOutlook(); });
    EXPECT_TRUE(outlookIsAskedFor(L"NameSpace.GetDefaultFolder"));
    desk.softphone(L"call Number=0123 Incoming=true");
    EXPECT_TRUE(desk.outlookShows(L"Marc Durand - Contact"));
}

TEST_F(Restart, NotesRestartedAtOnce_ItsSessionIsOpenedAgain_AndACallIsServed)
{
    desk.setDefault("AllApplication", "PopUp", "true");
    startWithNotes();
    betweenTicks([&] { desk.restartNotes(); });
    EXPECT_NE(desk.notes(L"calls").find(L"NotesSession.GetEnvironmentString"), std::wstring::npos);
    desk.softphone(L"call Number=4711 Incoming=true");
    EXPECT_TRUE(desk.notesShows(L"Claire Petit"));
}

TEST_F(Restart, SoftphoneRestartedAtOnce_StopsTheProgram_AsItsExitDoes)
{
    start();
    tick();
    settle();
    desk.restartSoftphone();
    tick();
    EXPECT_TRUE(logGets(L"Stop Connector Pavex HS"));
    desk.tick();
    EXPECT_TRUE(ends());
    EXPECT_EQ(desk.hublinkProcess().exitCode(), 0u);
    EXPECT_TRUE(desk.softphoneProcess().running());
}
