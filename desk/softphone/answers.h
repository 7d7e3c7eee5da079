// Wrong answers, for clients that must stand them: a member of the softphone
// then gives another value than its own. Everything else that can go wrong
// with a call is the recorder's fault plan.
#pragma once

#include "automation/value.h"

#include <map>
#include <string>
#include <string_view>

namespace desk::softphone {

class Answers {
public:
    // "Class.Member VALUE" or "off", which forgets all. VALUE is one of
    //     nothing          an empty object reference
    //     empty            no value
    //     text TEXT        TEXT up to the end, escapes as everywhere on the desk
    //     number N         a 32-bit integer
    //     truth true|false
    // Throws std::runtime_error saying what is wrong with the text.
    void set(std::wstring_view text);

    void clear() noexcept { planned_.clear(); }

    // The planned answer of a member, null when it shall give its own.
    const automation::Value* find(std::wstring_view className, std::wstring_view member) const;

private:
    std::map<std::wstring, automation::Value> planned_; // by class and member in lower case
};

}
