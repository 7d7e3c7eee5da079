// Plays at the simulated desk and tells about it.
//
//     player morning FOLDER     the scripted morning; FOLDER gets the picture, desk.bmp
//     player stay FOLDER        the same, then the programs are left running
//     player figures            what the program uses in the long run
//
// Exit code 0 only if everything was as it should be.
#include "automation/apartment.h"
#include "desk/common/text.h"
#include "desk/player/figures.h"
#include "desk/player/morning.h"

#include <cstdio>
#include <memory>
#include <string_view>

namespace {

using namespace desk::player;

int conclude(const Narrator& narrator)
{
    std::printf("\n%s\n", narrator.missing() ? "NOT everything is as it should be:" : "Everything is as it should be.");
    std::fputs(desk::utf8(narrator.missed()).c_str(), stdout);
    return narrator.missing() ? 1 : 0;
}

int play(std::string_view what, const std::wstring& folder)
{
    const automation::Apartment apartment;
    auto desk = std::make_unique<Desk>();
    Narrator narrator;
    if (what == "figures") {
        measureFigures(*desk, narrator);
        return conclude(narrator);
    }
    Morning(*desk, narrator, folder + L"\\desk.bmp").play();
    if (what == "stay") {
        desk->startHublink();
        desk.release(); // the programs end with the session
    }
    return conclude(narrator);
}

}

int main(int argc, char** argv)
{
    const std::string_view what = argc > 1 ? argv[1] : "";
    const bool withFolder = what == "morning" || what == "stay";
    if (argc != (withFolder ? 3 : 2) || (!withFolder && what != "figures")) {
        std::fprintf(stderr, "usage: player morning FOLDER | stay FOLDER | figures\n");
        return 2;
    }
    try {
        return play(what, withFolder ? desk::fromUtf8(argv[2]) : L"");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "player: %s\n", error.what());
        return 1;
    }
}
