// Folders, files and records for the tests of the identifier map.
#pragma once

#include "convid/identifier_store.h"
#include "support/scratch_folder.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace convid_tests {

using support::ScratchFolder;

std::vector<std::uint8_t> contents(const std::wstring& path);
void writeContents(const std::wstring& path, const std::vector<std::uint8_t>& bytes);
bool fileExists(const std::wstring& path);

using Key = std::pair<std::wstring, std::int32_t>;
using Records = std::map<Key, convid::IdentifierRecord>;

convid::IdentifierRecord record(const std::wstring& idOrvel, const std::wstring& idAppli, std::int32_t typApplication,
                                std::int32_t collection);

// Everything that the store tells, of both collections.
Records everything(convid::IdentifierStore& store);

// Short of the store's own time limit, for openings that are meant to fail.
inline constexpr convid::StoreOptions shortTimeout{.compactionFloor = 1'000, .timeout = 50};

}
