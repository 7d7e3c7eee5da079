#include "trials.h"

#include <algorithm>
#include <random>

namespace deaths {

namespace {

// Whether the mishap may happen at the calls of that partner.
bool happensAt(Mishap mishap, PartnerNumber partner)
{
    if (mishap == Mishap::groupwareDies) return partner != softphone;
    if (mishap == Mishap::softphoneDies) return partner == softphone;
    return true;
}

std::vector<Trial> allOf(const Stage& stage, Mishap mishap, bool after)
{
    std::vector<Trial> found;
    for (PartnerNumber partner = softphone; partner < stage.partners(); ++partner) {
        if (!happensAt(mishap, partner)) continue;
        for (std::size_t call = 0; call < stage.callsOf(partner).size(); ++call) {
            const Trial trial{mishap, partner, call, after};
            const bool isLookUp = stage.callsOf(partner)[call].isLookUp();
            if (after && isLookUp) continue; // a look-up has no effect
            if (!stage.riskOf(trial).isUnsteady) found.push_back(trial);
        }
    }
    return found;
}

}

std::vector<Trial> trials(const Stage& stage, const Sampling& sampling)
{
    std::mt19937 random(sampling.seed);
    std::vector<Trial> everyDeath = allOf(stage, Mishap::hublinkDies, false);
    const auto walks = std::stable_partition(everyDeath.begin(), everyDeath.end(),
                                             [&](const Trial& trial) { return !stage.isSampled(trial); });
    std::vector<std::vector<Trial>> kinds{{walks, everyDeath.end()}, allOf(stage, Mishap::hublinkDies, true)};
    everyDeath.erase(walks, everyDeath.end());
    for (const Mishap mishap : {Mishap::groupwareDies, Mishap::softphoneDies, Mishap::mapServerDies}) {
        kinds.push_back(allOf(stage, mishap, false));
        kinds.push_back(allOf(stage, mishap, true));
    }
    for (const Mishap mishap : {Mishap::busy, Mishap::fails}) kinds.push_back(allOf(stage, mishap, false));

    std::vector<Trial> chosen = std::move(everyDeath);
    for (std::vector<Trial>& kind : kinds) std::shuffle(kind.begin(), kind.end(), random);
    for (std::size_t turn = 0; turn < sampling.eachKind; ++turn)
        for (const std::vector<Trial>& kind : kinds)
            if (turn < kind.size()) chosen.push_back(kind[turn]);
    return chosen;
}

}
