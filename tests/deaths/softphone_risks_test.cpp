// What the sweep allows when something goes wrong while the map is purged.
#include "softphone_risks.h"

#include <gtest/gtest.h>

namespace {

using namespace deaths;

const std::vector<PartnerCall> purge = partnerCalls(L"History.Count get ()\n"
                                                    L"History.Find method (I4 2, I4 4)\n"
                                                    L"AddressBook.Count get ()\n"
                                                    L"AddressBook.Find method (I4 1, I4 7)\n"
                                                    L"AddressBook.Count get ()\n"
                                                    L"History.Count get ()");

}

TEST(SoftphoneRisks, OfTheWholePurge_OnlyACallsOwnLookUp_MayUnmapThatCall)
{
    const std::vector<Risk> risks = softphoneRisks(purge);
    ASSERT_EQ(risks.size(), 6u);
    for (std::size_t index = 0; index < risks.size(); ++index) {
        EXPECT_EQ(risks[index].unmappedByFailure, index == 1 ? L"2.4" : L"") << "call " << index;
        EXPECT_EQ(risks[index].openBefore + risks[index].openAfter + risks[index].beingCopied, L"") << "call " << index;
    }
}

TEST(SoftphoneRisks, CountThatFails_IsLoggedByTheWalk_AndNotByThePurge)
{
    using Lines = std::set<std::wstring>;
    const std::vector<Risk> risks = softphoneRisks(purge);
    EXPECT_EQ(risks[0].failureLines, Lines{});
    EXPECT_EQ(risks[2].failureLines, Lines{});
    EXPECT_EQ(risks[4].failureLines, Lines{L"Pb In Repertory Synchronisation"});
    EXPECT_EQ(risks[5].failureLines, Lines{L"Pb in History Synchronisation"});
}
