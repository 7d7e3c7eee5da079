// The softphone's place in the registry, as the program reads it.
#pragma once

#include "check/finding.h"
#include "check/texts.h"
#include "common/configuration.h"

namespace hublink::check {

struct SoftphoneFacts {
    std::wstring folder; // as RegGetString returns them
    std::wstring server;
    std::wstring user;
    bool hasUnusableFolder = false; // a text that RegGetString does not return: too long, or no plain one
    std::wstring folderInOtherView; // what only a 64-bit program reads, "" when nothing
    bool folderIsThere = false;
    bool programIsThere = false;
};

// `installation` as readInstallation has filled it.
SoftphoneFacts softphoneFacts(const Configuration& installation);

Findings softphoneFindings(const SoftphoneFacts& facts, const SoftphoneTexts& texts);

}
