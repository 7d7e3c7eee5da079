// Which mishaps are tried at which calls.
#pragma once

#include "stage.h"

namespace deaths {

struct Sampling {
    unsigned seed = 1;
    std::size_t eachKind = 150; // trials of each kind that is sampled
};

// First Hublink's death before every steady call outside the walks. Then, taking turns
// so that a run that is cut short has tried something of each: its death inside
// the walks and after calls, the other programs' deaths before and after calls,
// the partners busy and failing.
std::vector<Trial> trials(const Stage& stage, const Sampling& sampling);

}
