// Marks that some work is under way for as long as this lives: however the work
// ends, its mark does not outlive it.
#pragma once

namespace hublink {

class ScopedFlag {
public:
    explicit ScopedFlag(bool& mark) noexcept : mark_(mark) { mark_ = true; }
    ~ScopedFlag() { mark_ = false; }
    ScopedFlag(const ScopedFlag&) = delete;
    ScopedFlag& operator=(const ScopedFlag&) = delete;

private:
    bool& mark_;
};

}
