// SPDX-License-Identifier: Apache-2.0
#include "Commands/NearName.h"

#include "Print/JoinedText.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace ovscene {
namespace {

constexpr std::size_t kLongestName = 64;

/// The edit distance of Levenshtein.
std::size_t distance(const std::string& a, const std::string& b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (const char c : a) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = diagonal + (c == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

}  // namespace

std::string nearName(const std::string& written, const std::vector<std::string>& names) {
    std::string nearest;
    std::size_t least = kLongestName;
    for (const std::string& name : names) {
        const std::size_t longest = std::max(written.size(), name.size());
        const std::size_t steps = longest > kLongestName ? longest : distance(written, name);
        if (steps < least && steps <= std::max<std::size_t>(1, name.size() / 3)) {
            least = steps;
            nearest = name;
        }
    }
    return nearest;
}

std::string thereAre(const std::vector<std::string>& names) {
    return (names.size() == 1 ? "there is " : "there are ") + joined(names);
}

std::string unknownName(const std::string& kind,
                        const std::string& written,
                        const std::vector<std::string>& names) {
    const std::string near = nearName(written, names);
    const std::string told = "no " + kind + " '" + written + "'; ";
    return told + (near.empty() ? thereAre(names) : "did you mean '" + near + "'?");
}

}  // namespace ovscene
