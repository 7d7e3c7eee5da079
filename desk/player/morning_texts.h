// The longer texts of the morning, from desk/player/morning.
#pragma once

#include <string_view>

namespace desk::player::morning {

extern const std::string_view companyBook; // up to and with Marc Durand; more people may follow
extern const std::string_view otherDatabases;

}
