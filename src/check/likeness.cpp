#include "check/likeness.h"

#include "common/text.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace hublink::check {

namespace {

constexpr std::size_t maxDistance = 2;
constexpr std::size_t maxNameLength = 64; // no key has as many letters

// The number of letters to be changed, put in or taken away (Levenshtein).
std::size_t distance(const std::wstring& a, const std::wstring& b)
{
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

}

bool areAlike(const std::wstring& a, const std::wstring& b)
{
    if (a.size() > maxNameLength || b.size() > maxNameLength) return false;
    // Two letters of a short name are half of it.
    const std::size_t allowed = std::min(maxDistance, std::min(a.size(), b.size()) / 3);
    return distance(lowerCase(a), lowerCase(b)) <= allowed;
}

}
