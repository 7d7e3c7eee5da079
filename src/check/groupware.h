// The groupware that the settings name: whether its automation classes can be reached.
#pragma once

#include "check/finding.h"
#include "check/registered_class.h"
#include "check/texts.h"
#include "common/configuration.h"

namespace hublink::check {

struct GroupwareFacts {
    bool usesOutlook = false;
    bool usesNotes = false;
    std::vector<ClassFacts> outlook;
    std::vector<ClassFacts> notes;
    bool areSettingsRead = true;
    bool newOutlookRuns = false; // the one without automation
};

GroupwareFacts groupwareFacts(const Configuration& configuration);

Findings groupwareFindings(const GroupwareFacts& facts, const Texts& texts);

}
