#include "desk/player/narrator.h"

#include "desk/common/text.h"

#include <cstdio>

namespace desk::player {

void Narrator::print(const std::wstring& line)
{
    std::fputs((utf8(line) + "\n").c_str(), stdout);
    std::fflush(stdout);
}

void Narrator::step(const std::wstring& text)
{
    print(L"\n(" + std::to_wstring(++steps_) + L") " + text);
}

bool Narrator::expect(bool arrived, const std::wstring& what)
{
    print((arrived ? L"      ok       " : L"      MISSING  ") + escaped(what));
    if (!arrived) {
        ++missing_;
        missed_ += L"step " + std::to_wstring(steps_) + L": " + escaped(what) + L"\n";
    }
    return arrived;
}

void Narrator::remark(const std::wstring& text)
{
    print(L"      " + text);
}

}
