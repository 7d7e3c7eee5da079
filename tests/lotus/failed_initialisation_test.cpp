#include "lotus/initialisation.h"

#include "lotus_fixture.h"

namespace hublink {

namespace {

class LotusFailure : public LotusFixture {
protected:
    LotusFailure() { writeIni(describedBooks); }

    void init() { InitLotus(session, NewLog::yes); }

    void expectFailed(std::int16_t count)
    {
        EXPECT_FALSE(session.LotusReady);
        EXPECT_TRUE(session.LotusMustInit);
        EXPECT_FALSE(session.NotesSession);
        EXPECT_EQ(groupware.nbInitFailure, count);
    }

    static constexpr std::wstring_view noAccess = L"on NotesSession.GetDatabase fail 0x80004005";
};

}

TEST_F(LotusFailure, NotesThatIsNotInstalled_IsAFailure)
{
    automation::server::unregisterClass(desk::lotus::sessionClass);
    host.settings.Trace = true;
    init();
    expectFailed(1);
    EXPECT_EQ(host.messages, std::vector<std::wstring>{L"Pb Init Lotus"});
    automation::server::registerClass(desk::lotus::sessionClass, automation::server::programPath());
    init();
    EXPECT_TRUE(session.LotusReady);
    EXPECT_EQ(host.messages.back(), L"First Init lotus");
    EXPECT_EQ(groupware.nbInitFailure, 1) << "it is never reset";
}

TEST_F(LotusFailure, Failure_ReleasesTheSession_AndTheNextAttemptCreatesANewOne)
{
    host.settings.Trace = true;
    fault(noAccess);
    init();
    expectFailed(1);
    init();
    expectFailed(2);
    EXPECT_EQ(host.messages, (std::vector<std::wstring>{L"First Init lotus", L"Pb Init Lotus", L"First Init lotus",
                                                        L"Pb Init Lotus"}));
    EXPECT_EQ(host.stops, 0);
}

TEST_F(LotusFailure, FailureOfAReadySession_EndsItsReadiness)
{
    ready();
    session.LotusMustInit = true;
    fault(noAccess);
    init();
    expectFailed(1);
}

TEST_F(LotusFailure, MessageOfAFailure_ComesBeforeItsEffects)
{
    host.settings.Trace = true;
    fault(noAccess);
    host.onMessage = [this](const std::wstring& message) {
        if (message == L"Pb Init Lotus") {
            EXPECT_TRUE(session.NotesSession);
            EXPECT_EQ(groupware.nbInitFailure, 0);
        }
    };
    init();
    expectFailed(1);
}

TEST_F(LotusFailure, AtEveryCallInTurn_ItIsReadyOrHasFailedOnce)
{
    init();
    ASSERT_TRUE(session.LotusReady);
    const std::size_t count = notes.recorder().calls().size();
    std::size_t failures = 0;
    for (std::size_t n = 1; n <= count; ++n) {
        notes.load(notesDatabases);
        forgetCalls();
        GroupwareState counted;
        LotusSession fresh{host, counted, dictionary};
        fault(L"at " + std::to_wstring(n) + L" fail 0x80004005");
        InitLotus(fresh, NewLog::yes);
        EXPECT_EQ(fresh.LotusMustInit, !fresh.LotusReady) << n;
        EXPECT_EQ(static_cast<bool>(fresh.NotesSession), fresh.LotusReady) << n;
        EXPECT_EQ(counted.nbInitFailure, fresh.LotusReady ? 0 : 1) << n;
        failures += !fresh.LotusReady;
    }
    // The calls to the session itself and their names; what the log document
    // does is no failure.
    EXPECT_EQ(failures, 10u);
    EXPECT_EQ(host.stops, 0);
}

TEST_F(LotusFailure, Counter_IsComparedForEqualityOnly_AndNeverStops)
{
    for (const std::int16_t limit : {std::int16_t{-1}, std::int16_t{0}}) {
        host.settings.gnb_echec = limit;
        for (int failures = 0; failures < 5; ++failures) {
            forgetCalls();
            fault(noAccess);
            init();
        }
    }
    expectFailed(10);
    EXPECT_EQ(host.stops, 0);
}

TEST_F(LotusFailure, CounterThatMeetsTheLimit_StopsOnce)
{
    groupware.nbInitFailure = -3; // it cannot get there by itself
    host.settings.gnb_echec = -1;
    fault(noAccess);
    for (int failures = 0; failures < 4; ++failures) init();
    EXPECT_EQ(host.stops, 1);
    expectFailed(1);
}

TEST_F(LotusFailure, CounterAtItsLargestValue_EndsTheHandlerOnly)
{
    groupware.nbInitFailure = 32767;
    host.settings.gnb_echec = -1;
    fault(noAccess);
    init();
    expectFailed(32767);
    EXPECT_EQ(host.stops, 0);
    EXPECT_EQ(trapped.procedures, (std::vector<std::wstring>{L"InitLotus", L"InitLotus"}));
}

}
