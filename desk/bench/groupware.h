// What the bench has to know about a groupware partner to measure Hublink with
// it. Each groupware has a script besides, "NAME.vbs", which takes the same
// steps late bound.
#pragma once

#include "desk/bench/call_counts.h"
#include "desk/bench/people.h"

namespace desk::bench {

// Calls that Hublink's steps cannot do without.
struct NeededCalls {
    std::wstring what;
    unsigned long count;
};

unsigned long sumOf(const std::vector<NeededCalls>& calls);

class Groupware {
public:
    virtual ~Groupware() = default;

    virtual const wchar_t* name() const = 0;
    virtual const wchar_t* script() const = 0;

    // Starts the partner with these contacts and nothing else, or gives them to
    // the one that runs. Throws std::runtime_error.
    virtual void start(const People& contacts) = 0;
    virtual void load(const People& contacts) = 0;

    // What the ini file has to say besides what is installed.
    virtual void configure() {}

    // A request to the partner's control pipe.
    virtual std::wstring ask(std::wstring_view request) = 0;

    // How many lines of the program's logs in the groupware end like this.
    virtual int logLines(const std::wstring& ending) = 0;

    // What was mirrored, as a text that is the same for the same result.
    virtual std::wstring mirrored() = 0;

    // Whether a script calls that member once for each contact that it walks
    // over; and how many contacts it has asked for.
    virtual bool isOfWalk(const std::wstring& member) const = 0;
    virtual unsigned long walked(const CallCounts& counts) const = 0;

    // An initialisation that mirrors nothing: opening the session, the log lines.
    virtual std::vector<NeededCalls> neededForSession() const = 0;
};

}
