// What was found, in the order of the subjects, as text.
#pragma once

#include "check/finding.h"
#include "check/texts.h"

#include <string>
#include <vector>

namespace hublink::check {

struct Section {
    Words title;
    Findings findings;
    std::vector<Words> lines; // a list that is not judged
};

struct Report {
    std::vector<Words> heading;
    std::vector<Section> sections;
};

enum class Names { shown, hidden };

// One line a finding: its mark, what it is; a second one says what to do. Lines end as in
// files of Windows.
std::wstring textOf(const Report& report, Names names, const ReportTexts& texts);

std::size_t count(const Report& report, Mark mark);

}
