// Tells, line by line, what the user did and what arrived where.
#pragma once

#include <string>

namespace desk::player {

class Narrator {
public:
    // What the user does next.
    void step(const std::wstring& text);

    // One thing that must have arrived; returns `arrived`.
    bool expect(bool arrived, const std::wstring& what);

    // A remark.
    void remark(const std::wstring& text);

    // How many things were expected in vain.
    int missing() const noexcept { return missing_; }

    // Those things, a line each.
    const std::wstring& missed() const noexcept { return missed_; }

private:
    void print(const std::wstring& line);

    int steps_ = 0;
    int missing_ = 0;
    std::wstring missed_;
};

}
