// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::Support {

/// The name that was probably meant: the one with the fewest letters to change, add or leave out,
/// up to a third of its length; empty when none is that near.
std::string_view nearestName(std::string_view written, const std::vector<std::string_view>& names);

/// The end of a message on an unknown name: `; did you mean "duplicate"?`, or "" when no name is
/// near.
std::string didYouMean(std::string_view written, const std::vector<std::string_view>& names);

}  // namespace Sylvar3::internal::Support
