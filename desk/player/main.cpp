// Plays at the simulated desk and tells about it.
//
//     player morning GROUPWARE FOLDER   the scripted morning, with outlook, lotus
//                                       or both; FOLDER gets the pictures, *.bmp
//     player stay GROUPWARE FOLDER      the same, then the programs are left running
//
// Exit code 0 only if everything was as it should be.
#include "automation/apartment.h"
#include "desk/common/text.h"
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

int play(bool stay, GroupwareInUse groupware, const std::wstring& folder)
{
    const automation::Apartment apartment;
    auto desk = std::make_unique<Desk>();
    Narrator narrator;
    Morning(*desk, narrator, groupware, folder).play();
    if (stay) {
        desk->startHublink();
        [[maybe_unused]] const Desk* left = desk.release(); // the programs end with the session
    }
    return conclude(narrator);
}

}

int main(int argc, char** argv)
{
    const std::string_view what = argc > 1 ? argv[1] : "";
    const std::string_view groupware = argc == 4 ? argv[2] : "";
    const GroupwareInUse inUse{groupware != "lotus", groupware != "outlook"};
    const bool known = groupware == "outlook" || groupware == "lotus" || groupware == "both";
    try {
        if (known && (what == "morning" || what == "stay")) return play(what == "stay", inUse, desk::fromUtf8(argv[3]));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "player: %s\n", error.what());
        return 1;
    }
    std::fprintf(stderr, "usage: player morning|stay outlook|lotus|both FOLDER\n");
    return 2;
}
