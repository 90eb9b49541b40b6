// SPDX-License-Identifier: Apache-2.0
#include "Platform/Support/NearestName.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace Sylvar3::internal::Support {

namespace {

constexpr std::size_t kLongestName = 64;

/// The edit distance of Levenshtein.
std::size_t distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

}  // namespace

std::string_view nearestName(std::string_view written, const std::vector<std::string_view>& names) {
    if (written.size() > kLongestName) {
        return {};
    }
    std::string_view nearest;
    std::size_t least = kLongestName;
    for (const std::string_view name : names) {
        const std::size_t steps = distance(written, name);
        if (steps < least && steps <= std::max<std::size_t>(1, name.size() / 3)) {
            least = steps;
            nearest = name;
        }
    }
    return nearest;
}

std::string didYouMean(std::string_view written, const std::vector<std::string_view>& names) {
    const std::string_view nearest = nearestName(written, names);
    return nearest.empty() ? std::string() : "; did you mean \"" + std::string(nearest) + "\"?";
}

}  // namespace Sylvar3::internal::Support
