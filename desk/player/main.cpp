// Plays the morning on the simulated desk and tells about it.
//
//     player [--stay] FOLDER      FOLDER gets the picture, desk.bmp
//
// Exit code 0 only if everything arrived. With --stay the programs are left
// running, Hublink started once more.
#include "automation/apartment.h"
#include "desk/common/text.h"
#include "desk/player/morning.h"

#include <cstdio>
#include <cstring>

namespace {

using namespace desk::player;

int play(bool stay, const std::wstring& folder)
{
    const automation::Apartment apartment;
    auto* const desk = new Desk; // with --stay it is left to the end of the session
    Narrator narrator;
    Morning(*desk, narrator, folder + L"\\desk.bmp").play();
    std::printf("\n%s\n", narrator.missing() ? "NOT everything arrived:" : "Everything arrived.");
    std::fputs(desk::utf8(narrator.missed()).c_str(), stdout);
    if (stay) desk->startHublink();
    else delete desk;
    return narrator.missing() ? 1 : 0;
}

}

int main(int argc, char** argv)
{
    const bool stay = argc > 1 && !std::strcmp(argv[1], "--stay");
    if (argc != (stay ? 3 : 2)) {
        std::fprintf(stderr, "usage: player [--stay] FOLDER\n");
        return 2;
    }
    try {
        return play(stay, desk::fromUtf8(argv[argc - 1]));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "player: %s\n", error.what());
        return 1;
    }
}
