// A thin cut of the sweep in both groupware: a few trials of every kind.
#include "notes_mirror.h"
#include "outlook_mirror.h"
#include "trials.h"

#include "desk/common/text.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace deaths;

constexpr DWORD timeForAll = 15'000; // milliseconds, after which no further trial begins
constexpr std::size_t fewestTrials = 8; // are made however long they take

// In turn a death of Hublink, a few calls further on each time, and one trial of
// another kind.
std::vector<Trial> thinCut(const Stage& stage)
{
    const std::vector<Trial> all = trials(stage, {.seed = 1, .eachKind = 1});
    const auto isSampled = [&](const Trial& trial) { return stage.isSampled(trial); };
    const auto sampled = std::find_if(all.begin(), all.end(), isSampled);
    const auto deaths = static_cast<std::size_t>(sampled - all.begin());
    const auto others = static_cast<std::size_t>(all.end() - sampled);
    std::vector<Trial> chosen;
    for (std::size_t n = 0; n < others; ++n) {
        chosen.push_back(all[(2 * n + 1) * deaths / (2 * others)]);
        chosen.push_back(all[deaths + n]);
    }
    return chosen;
}

constexpr PartnerNumber notesNumber = 1;
constexpr PartnerNumber outlookNumber = 2;

// Hublink's death before the n-th call of that kind to the partner.
Trial deathBefore(const Stage& stage, PartnerNumber partner, std::wstring_view member, int n)
{
    const std::vector<PartnerCall>& calls = stage.callsOf(partner);
    std::size_t index = 0;
    while (calls.at(index).isLookUp() || calls[index].member != member || --n > 0) ++index;
    return {Mishap::hublinkDies, partner, index, false};
}

}

// The one window of Hublink's own death: saved, and not in the map yet.
TEST(Deaths, OfHublink_DoubleACallThatIsSavedAndNotInTheMapYet_AndNoOther)
{
    const NotesMirror notes;
    const OutlookMirror outlook;
    Stage stage({&notes, &outlook});
    EXPECT_EQ(stage.run(deathBefore(stage, outlookNumber, L"JournalItem.EntryID", 3)).doubledAsAllowed, 1);
    EXPECT_EQ(stage.run(deathBefore(stage, outlookNumber, L"JournalItem.Body", 8)).doubledAsAllowed, 0);
    EXPECT_EQ(stage.run(deathBefore(stage, notesNumber, L"NotesUIWorkspace.CurrentDatabase", 3)).doubledAsAllowed, 1);
}

TEST(Deaths, OfEveryProgram_LoseNothing_AndDoubleOnlyWhatTheRuleAllows)
{
    const NotesMirror notes;
    const OutlookMirror outlook;
    Stage stage({&notes, &outlook});
    const std::vector<Trial> chosen = thinCut(stage);
    ASSERT_GE(chosen.size(), fewestTrials);
    const DWORD start = GetTickCount();
    std::size_t made = 0;
    int repeated = 0;
    for (const Trial& trial : chosen) {
        if (made >= fewestTrials && GetTickCount() - start > timeForAll) break;
        SCOPED_TRACE(desk::utf8(stage.text(trial)));
        const Verdict verdict = stage.run(trial);
        for (const std::wstring& deviation : verdict.deviations) ADD_FAILURE() << desk::utf8(deviation);
        // One may meet a busy moment of the machine; a second has a cause in the programs.
        if (!verdict.brokenOff.empty() && ++repeated > 1) ADD_FAILURE() << desk::utf8(verdict.brokenOff);
        ++made;
    }
}
