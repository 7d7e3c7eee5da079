// PavexConvId.exe as its users meet it: as processes, through COM.
#include "automation/enumeration.h"
#include "automation/error.h"
#include "automation/owners.h"
#include "automation/server/end_request.h"
#include "convid/class_identity.h"
#include "convid/server_process.h"
#include "server_fixture.h"

#include <algorithm>

using namespace convid_tests;
using automation::Object;
using automation::Value;
using support::Process;
using support::eventually;

namespace {

constexpr std::int32_t outlook = 0;
constexpr std::int32_t lotus = 1;
constexpr std::int32_t addressBook = 1;

bool classIsKnown()
{
    CLSID classId;
    return SUCCEEDED(CLSIDFromProgID(L"PavexConvId.OrvelConvertId", &classId));
}

bool serversAre(std::size_t count)
{
    return eventually([&] { return servers().size() == count; });
}

// What the server program writes to its error output.
std::string errorOutputOf(const std::wstring& arguments, DWORD& exitCode)
{
    const ScratchFolder folder;
    exitCode = Process(support::command(L"PavexConvId.exe") + L" " + arguments, folder.file(L"errors")).exitCode();
    return support::readFile(folder.file(L"errors"));
}

bool unlocked;
int beats;

// A client in the serving thread itself: Wine passes no locking on to other
// processes.
void CALLBACK lockAndUnlock(HWND, UINT, UINT_PTR timer, DWORD)
{
    KillTimer(nullptr, timer);
    automation::ComPtr<IClassFactory> factory;
    ASSERT_EQ(CoGetClassObject(convid::classRegistration.classId, CLSCTX_LOCAL_SERVER, nullptr, IID_IClassFactory,
                               factory.receiveVoid()),
              S_OK);
    ASSERT_EQ(factory->LockServer(TRUE), S_OK);
    ASSERT_EQ(factory->LockServer(FALSE), S_OK);
    unlocked = true;
}

void CALLBACK beat(HWND, UINT, UINT_PTR, DWORD)
{
    ++beats;
}

}

using Server = ServerFixture;

TEST_F(Server, RegisteredAndUnregistered_IsKnownAndUnknown)
{
    EXPECT_TRUE(classIsKnown());
    EXPECT_EQ(runServer(L"/RegServer"), 0u); // once more does no harm
    EXPECT_TRUE(classIsKnown());
    EXPECT_EQ(runServer(L"/UnregServer"), 0u);
    EXPECT_FALSE(classIsKnown());
    EXPECT_EQ(runServer(L"/UnregServer"), 0u);
}

TEST_F(Server, WrongCommandLine_EndsWithACode_AndOneLineOfExplanation)
{
    for (const wchar_t* arguments : {L"", L"/Help", L"/RegServer now"}) {
        DWORD code = 0;
        const std::string text = errorOutputOf(arguments, code);
        EXPECT_EQ(code, 2u);
        EXPECT_NE(text.find("usage: PavexConvId"), std::string::npos);
        EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1);
    }
    DWORD code = 1;
    EXPECT_EQ(errorOutputOf(L"/RegServer", code), "");
    EXPECT_EQ(code, 0u);
}

TEST_F(Server, TwoObjects_ShareOneProcessAndOneStore)
{
    const Object first = newObject();
    const Object second = newObject();
    first.call(L"InsertId", {L"entry", L"5.7", outlook, addressBook});
    EXPECT_EQ(converted(second, L"5.7", outlook), L"entry");
    EXPECT_EQ(servers().size(), 1u);
}

TEST_F(Server, LastObjectReleased_ProcessEnds_AndTheNextOneFindsTheRecords)
{
    {
        Object first = newObject();
        const Object second = newObject();
        first.call(L"InsertId", {L"entry", L"5.7", outlook, addressBook});
        first = Object();
        // A server that had ended could not answer again and again.
        for (int calls = 0; calls < 3; ++calls) EXPECT_EQ(converted(second, L"5.7", outlook), L"entry");
        EXPECT_EQ(servers().size(), 1u) << "an object is left";
    }
    EXPECT_TRUE(serversAre(0));
    EXPECT_EQ(converted(newObject(), L"5.7", outlook), L"entry");
}

TEST_F(Server, CollectionAloneHeld_KeepsTheProcess)
{
    Object records;
    {
        const Object map = newObject();
        map.call(L"InsertId", {L"entry", L"5.7", outlook, addressBook});
        records = map.get(L"idCollection", {addressBook}).object();
    }
    for (int calls = 0; calls < 3; ++calls)
        EXPECT_EQ(records.get(L"Item", {std::int32_t{1}}).object().get(L"idAppli").text(), L"entry");
    records = Object();
    EXPECT_TRUE(serversAre(0));
}

TEST_F(Server, ObjectAskedForRightAfterTheLastRelease_IsAlwaysServed)
{
    for (int round = 0; round < 4; ++round) {
        const std::wstring id = L"1." + std::to_wstring(round);
        {
            const Object map = newObject();
            map.call(L"InsertId", {L"entry", id, outlook, addressBook});
        }
        EXPECT_EQ(converted(newObject(), id.c_str(), outlook), L"entry");
    }
    EXPECT_TRUE(serversAre(0));
}

TEST_F(Server, ClientNeverComes_ProcessWaits_AndEndsWhenItsPatienceDoes)
{
    beats = 0;
    const UINT_PTR timer = SetTimer(nullptr, 0, 10, beat);
    convid::ServerProcess process;
    process.run(500);
    KillTimer(nullptr, timer);
    EXPECT_GT(beats, 0);
}

// Its time limit is longer than any test may take.
TEST_F(Server, UnlockedByItsLastClient_ProcessEnds)
{
    unlocked = false;
    SetTimer(nullptr, 0, 50, lockAndUnlock);
    convid::ServerProcess process;
    process.run(600'000);
    EXPECT_TRUE(unlocked);
}

TEST_F(Server, RecordsRemovedDuringForEach_AreAllSeen)
{
    const Object map = newObject();
    for (int number = 0; number < 20; ++number)
        map.call(L"InsertId", {L"note", L"1." + std::to_wstring(number), lotus, addressBook});
    const Object other = newObject();
    int seen = 0;
    automation::Enumeration records(other.get(L"idCollection", {addressBook}).object());
    for (Value element; records.next(element); ++seen) {
        const Object found = element.object();
        other.call(L"RemoveIdOrvel", {found.get(L"idOrvel"), found.get(L"typApplication")});
    }
    EXPECT_EQ(seen, 20);
    EXPECT_EQ(map.get(L"idCollection", {addressBook}).object().get(L"Count").int32(), 0);
}

TEST_F(Server, StoppedServer_HasLetGoOfTheStore_AndWorksOnWithTheNextCall)
{
    const Object map = newObject();
    map.call(L"InsertId", {L"entry", L"5.7", outlook, addressBook});
    const auto canBeHeldAlone = [&] {
        return automation::ownedIfValid(
                   CreateFileW(store.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr)) != nullptr;
    };
    EXPECT_FALSE(canBeHeldAlone());
    map.call(L"StopOrvelConvertId");
    EXPECT_TRUE(canBeHeldAlone());
    EXPECT_EQ(converted(map, L"5.7", outlook), L"entry");
}

TEST_F(Server, StoreHeldByAnotherProgram_IsAnErrorWithADescription)
{
    const Object map = newObject();
    map.call(L"InsertId", {L"entry", L"5.7", outlook, addressBook});
    map.call(L"StopOrvelConvertId");
    convid::IdentifierStore holder(store);
    holder.find(L"5.7", outlook);
    try {
        map.call(L"InsertId", {L"entry", L"5.8", outlook, addressBook});
        ADD_FAILURE() << "no error";
    } catch (const automation::AutomationError& error) {
        EXPECT_EQ(error.source(), L"PavexConvId");
        EXPECT_NE(error.description().find(L"in use by another program"), std::wstring::npos);
    }
    holder.close();
    EXPECT_NO_THROW(map.call(L"InsertId", {L"entry", L"5.8", outlook, addressBook}));
}

TEST_F(Server, ClientDiesSuddenly_ItsRecordIsKept_AndOthersGoOn)
{
    const Object map = newObject();
    EXPECT_EQ(Process(support::command(L"convid_victim.exe") + L" client").exitCode(), 9u);
    EXPECT_EQ(converted(map, L"6.6", outlook), L"inserted before death");
    EXPECT_EQ(converted(newObject(), L"6.6", outlook), L"inserted before death");
    EXPECT_EQ(servers().size(), 1u);
}

TEST_F(Server, OnlyClientDiesSuddenly_LaterClientIsServed)
{
    const std::wstring client = support::command(L"convid_victim.exe") + L" ";
    EXPECT_EQ(Process(client + L"client").exitCode(), 9u);
    EXPECT_EQ(Process(client + L"later").exitCode(), 0u);
    EXPECT_LE(servers().size(), 1u);
}

TEST_F(Server, AskedToEnd_EndsThoughAClientHoldsAnObject_TheNextClientIsServed)
{
    const Object map = newObject();
    map.call(L"InsertId", {L"entry", L"5.7", outlook, addressBook});
    ASSERT_TRUE(automation::server::requestEnd(servers().at(0)));
    EXPECT_TRUE(serversAre(0));
    EXPECT_THROW(map.call(L"RemoveIdOrvel", {L"5.7", outlook}), automation::AutomationError);
    EXPECT_EQ(converted(newObject(), L"5.7", outlook), L"entry");
}

TEST_F(Server, AskedToEnd_WhenNoSuchProcessRuns_IsTold)
{
    EXPECT_FALSE(automation::server::requestEnd(GetCurrentProcessId()));
}

TEST_F(Server, KilledRightAfterAnAnswer_LosesNothing)
{
    for (int round = 0; round < 5; ++round) {
        const std::wstring id = L"1." + std::to_wstring(round);
        {
            const Object map = newObject();
            map.call(L"InsertId", {L"entry " + id, id, outlook, addressBook});
            support::killMapServers();
        }
        ASSERT_EQ(servers().size(), 0u);
        const Object map = newObject();
        for (int earlier = 0; earlier <= round; ++earlier) {
            const std::wstring known = L"1." + std::to_wstring(earlier);
            EXPECT_EQ(converted(map, known.c_str(), outlook), L"entry " + known);
        }
    }
}

TEST_F(Server, LateBoundScript_FindsEverythingAsDescribed)
{
    Process script(L"cscript.exe //nologo " + support::command(L"late_bound_client.vbs"));
    EXPECT_EQ(script.exitCode(), 42u);
}
