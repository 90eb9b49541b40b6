// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cmath>

namespace Sylvar3::internal::OvAttribute {

/// How far `time` lies from `begin` to `end`, 0 to 1; 0 when they are equal or endlessly apart.
inline double fractionBetween(double begin, double end, double time) {
    return end > begin && std::isfinite(end - begin) ? (time - begin) / (end - begin) : 0.0;
}

/// The value that lies that far from `a` to `b`. Each end has its own share: their difference may
/// be beyond all numbers when they are not.
inline double interpolated(double a, double b, double fraction) {
    return a == b || fraction == 0.0 ? a : a * (1.0 - fraction) + b * fraction;
}

}  // namespace Sylvar3::internal::OvAttribute
