// What the tests of the look at a desk share.
#pragma once

#include "automation/text.h"
#include "check/finding.h"
#include "check/texts.h"
#include "support/saved_value.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

namespace hublink::check {

inline void PrintTo(const Finding& finding, std::ostream* out)
{
    constexpr const char* marks[] = {"ok", "note", "problem"};
    *out << marks[static_cast<int>(finding.mark)] << ": " << automation::toAnsi(finding.what.full) << " -> "
         << automation::toAnsi(finding.advice.full);
}

inline bool holds(const Findings& findings, const Finding& finding)
{
    return std::find(findings.begin(), findings.end(), finding) != findings.end();
}

// Those that are not simply in order.
inline Findings remarks(Findings findings)
{
    std::erase_if(findings, [](const Finding& each) { return each.mark == Mark::ok; });
    return findings;
}

}
