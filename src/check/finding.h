// What one look has found: a plain mark, what it is, and what to do about it.
#pragma once

#include "check/words.h"

#include <vector>

namespace hublink::check {

enum class Mark {
    ok,
    note,    // worth knowing; Hublink works
    problem, // something does not work, or not as somebody meant it
};

struct Finding {
    Mark mark;
    Words what;
    Words advice; // empty when there is nothing to do

    bool operator==(const Finding&) const = default;
};

using Findings = std::vector<Finding>;

template <int gaps, class... Fillings>
Finding ok(const Text<gaps>& text, const Fillings&... fillings)
{
    return {Mark::ok, text(fillings...), {}};
}

template <int gaps, class... Fillings>
Finding note(const AdvisedText<gaps>& text, const Fillings&... fillings)
{
    return {Mark::note, text.what(fillings...), text.advice(fillings...)};
}

template <int gaps, class... Fillings>
Finding problem(const AdvisedText<gaps>& text, const Fillings&... fillings)
{
    return {Mark::problem, text.what(fillings...), text.advice(fillings...)};
}

inline void append(Findings& findings, Findings more)
{
    for (Finding& each : more) findings.push_back(std::move(each));
}

}
