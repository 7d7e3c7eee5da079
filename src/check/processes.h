// The programs that Hublink works with: which run, whose they are, and whether elevated.
// A program that runs elevated cannot be reached by one that does not.
#pragma once

#include "check/finding.h"
#include "check/texts.h"
#include "common/configuration.h"
#include "common/program_files.h"

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace hublink::check {

enum class Elevation { no, yes, unknown };

struct ProcessFacts {
    DWORD id = 0;
    bool isOtherUsers = false;
    Elevation elevation = Elevation::unknown;
};

struct ProgramFacts {
    const wchar_t* file;
    std::vector<ProcessFacts> processes;
};

struct RunningFacts {
    bool isListed = true; // else the system did not list its processes
    Elevation own = Elevation::unknown; // of this program itself
    ProgramFacts hublink{hublinkProgram, {}};
    ProgramFacts softphone{softphoneProgram, {}};
    ProgramFacts outlook{outlookProgram, {}};
    ProgramFacts notes{notesProgram, {}};
    ProgramFacts map{mapServerProgram, {}};
    bool usesOutlook = false;
    bool usesNotes = false;
};

RunningFacts runningFacts(const Configuration& configuration);

Findings processFindings(const RunningFacts& facts, const ProcessTexts& texts);

// What can be found out about a process of this session.
ProcessFacts processFacts(DWORD id);

}
