// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

namespace Sylvar3::internal::Support {

/// The number without its fraction; the nearest int where none holds it, and 0 for what is no
/// number.
inline int truncatedInt(double number) {
    constexpr double kLeast = std::numeric_limits<int>::min();
    constexpr double kGreatest = std::numeric_limits<int>::max();
    return std::isnan(number) ? 0 : static_cast<int>(std::clamp(number, kLeast, kGreatest));
}

}  // namespace Sylvar3::internal::Support
