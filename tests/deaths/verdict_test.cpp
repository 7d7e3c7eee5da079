// The judge itself: what it calls lost, doubled, not whole or too much.
#include "outlook_mirror.h"
#include "softphone_records.h"
#include "verdict.h"

#include <gtest/gtest.h>

namespace {

using namespace deaths;

class DeathsVerdict : public testing::Test {
protected:
    DeathsVerdict()
    {
        std::size_t next = 0;
        const auto add = [&](std::vector<Mirror>& mirrors, const std::wstring& key) {
            mirrors.push_back({std::to_wstring(++next), key, L"whole " + key});
            return mirrors.back().id;
        };
        for (const Entry& entry : entries()) state.map.push_back({entry.id, add(state.contacts, entry.number), 0, 1});
        for (const wchar_t* stranger : strangers) add(state.contacts, stranger);
        for (const Call& call : calls()) state.map.push_back({call.id, add(state.calls, call.begin), 0, 0});
        whole = state;
    }

    Verdict verdict(const Permission& permission = {}) const { return judge(state, groupware, permission, &whole); }

    const OutlookMirror groupware;
    State state;
    State whole;
};

}

TEST_F(DeathsVerdict, EverythingOnce_IsGood)
{
    EXPECT_TRUE(verdict().isGood());
}

TEST_F(DeathsVerdict, RecordMissing_IsLost_WhateverIsPermitted)
{
    state.calls.erase(state.calls.begin() + 3);
    const Verdict found = verdict({{calls()[3].id}, {}});
    EXPECT_EQ(found.lost, 2) << "the call, and its record in the map leads nowhere";
    EXPECT_FALSE(found.isGood());
}

TEST_F(DeathsVerdict, MapRecordMissing_IsLost)
{
    state.map.erase(state.map.begin());
    EXPECT_EQ(verdict().lost, 1);
}

TEST_F(DeathsVerdict, MappedToTheRecordOfAnother_IsLost)
{
    std::swap(state.map[0].groupwareId, state.map[1].groupwareId);
    EXPECT_EQ(verdict().lost, 2);
}

TEST_F(DeathsVerdict, RecordThereTwice_IsPermittedOnlyByName_AndOnlyOnce)
{
    state.calls.push_back({L"copy", calls()[5].begin, L""});
    EXPECT_EQ(verdict().doubledForbidden, 1);
    EXPECT_EQ(verdict({{calls()[4].id}, {}}).doubledForbidden, 1) << "another call is permitted";
    const Verdict permitted = verdict({{calls()[5].id}, {}});
    EXPECT_TRUE(permitted.isGood());
    EXPECT_EQ(permitted.doubledAsAllowed, 1);
    state.calls.push_back({L"second copy", calls()[5].begin, L""});
    EXPECT_EQ(verdict({{calls()[5].id}, {}}).doubledForbidden, 1);
}

TEST_F(DeathsVerdict, ContactOfAStrangerTwice_IsRefused)
{
    state.contacts.push_back({L"copy", strangers[0], L""});
    EXPECT_EQ(verdict().doubledForbidden, 1);
    EXPECT_EQ(verdict({{}, {strangers[0]}}).doubledAsAllowed, 1);
}

TEST_F(DeathsVerdict, ContactOfAStrangerThatIsMissing_IsPermittedOnlyByItsNumber)
{
    std::erase_if(state.contacts, [](const Mirror& contact) { return contact.key == strangers[1]; });
    EXPECT_EQ(verdict().lost, 1);
    EXPECT_EQ(verdict({{}, {}, strangers[0]}).lost, 1);
    const Verdict permitted = verdict({{}, {}, strangers[1]});
    EXPECT_TRUE(permitted.isGood());
    EXPECT_EQ(permitted.missingAsAllowed, 1);
}

TEST_F(DeathsVerdict, RecordWithAFieldLess_IsNotWhole)
{
    state.calls[7].content = L"half";
    EXPECT_EQ(verdict().deviations.size(), 1u);
}

TEST_F(DeathsVerdict, RecordThatNobodyHas_AndMapRecordOfADeletedOne_AreRefused)
{
    state.contacts.push_back({L"odd", L"4711", L""});
    state.map.push_back({goneCall, L"odd", 0, 0});
    EXPECT_EQ(verdict().deviations.size(), 2u);
}
