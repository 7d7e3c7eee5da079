// Marks that some work is under way for as long as this lives: however the work
// ends, its mark does not outlive it.
#pragma once

namespace hublink {

class UnderWay {
public:
    explicit UnderWay(bool& mark) noexcept : mark_(mark) { mark_ = true; }
    ~UnderWay() { mark_ = false; }
    UnderWay(const UnderWay&) = delete;
    UnderWay& operator=(const UnderWay&) = delete;

private:
    bool& mark_;
};

}
