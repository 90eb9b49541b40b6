// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace ovtest {

using Texts = std::vector<std::string>;

/// Whether a list of path patterns matches a path: written down as the rules are told, trying
/// everything. The patterns have to be right.
bool naiveMatches(const Texts& patterns, const std::string& path);

/// Whether it matches the nearest location, at or above the path, for which any pattern of the
/// list matches or takes away.
bool naiveIsWithinMatch(const Texts& patterns, std::string path);

}  // namespace ovtest
