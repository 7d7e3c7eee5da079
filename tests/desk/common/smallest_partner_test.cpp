// What every partner program gets from the frame around it, shown by the smallest one.
#include "automation/error.h"
#include "automation/object.h"
#include "support/failure.h"
#include "support/running_partner.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

namespace {

using automation::Object;

class SmallestPartner : public support::RunningPartner {
public:
    explicit SmallestPartner(std::string_view store = {})
        : RunningPartner({L"smallest.exe", L"smallest", L"Desk.Smallest"}, store)
    {}
};

TEST(PartnerProgram, ClientInAnotherProcess_IsServed_AndItsCallsAreRecorded)
{
    const SmallestPartner partner;
    const Object directory = Object::create(L"Desk.Smallest");
    directory.call(L"Add", {L"Anna Keller"});
    EXPECT_EQ(directory.get(L"Count").int32(), 1);
    EXPECT_EQ(partner.ask(L"knows Anna Keller"), L"yes");
    EXPECT_EQ(partner.ask(L"record"), L"Directory.Add lookup\nDirectory.Add method (BSTR \"Anna Keller\")\n"
                                      L"Directory.Count lookup\nDirectory.Count get ()");
}

TEST(PartnerProgram, WhatItKeeps_IsInItsStoreFile_AndThereAgainAfterItDied)
{
    SmallestPartner partner("[person]\nName=Marc Durand\n");
    Object::create(L"Desk.Smallest").call(L"Add", {L"Anna Keller"});
    EXPECT_EQ(partner.ask(L"flush"), L"ok");
    EXPECT_EQ(partner.ask(L"die"), L"ok");
    EXPECT_NE(partner.process().exitCode(), support::Process::stillRuns);
    partner.start();
    EXPECT_EQ(partner.ask(L"knows Marc Durand"), L"yes");
    EXPECT_EQ(partner.ask(L"knows Anna Keller"), L"yes");
}

TEST(PartnerProgram, PlannedFault_IsWhatTheClientSees)
{
    const SmallestPartner partner;
    const Object directory = Object::create(L"Desk.Smallest");
    EXPECT_EQ(partner.ask(L"fault on Directory.Add fail 0x80004005"), L"ok");
    EXPECT_EQ(codeOf([&] { directory.call(L"Add", {L"Anna Keller"}); }), E_FAIL);
    EXPECT_EQ(directory.get(L"Count").int32(), 0);
}

TEST(PartnerProgram, RecordThatMakesNoSense_IsRefused_AndNothingIsLost)
{
    const SmallestPartner partner("[person]\nName=Marc Durand\n");
    EXPECT_EQ(partner.ask(L"load\n[person]\nName=Anna Keller\n[person]\nAge=41\n").substr(0, 6), L"error:");
    EXPECT_EQ(partner.ask(L"knows Marc Durand"), L"yes");
    EXPECT_EQ(partner.ask(L"knows Anna Keller"), L"no");
}

}
