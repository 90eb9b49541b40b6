// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// SplitMix64 (Steele, Lea, Flood 2014): neighbouring numbers give unrelated ones.
inline std::uint64_t mixed(std::uint64_t number) {
    number += 0x9e3779b97f4a7c15;
    number = (number ^ (number >> 30)) * 0xbf58476d1ce4e5b9;
    number = (number ^ (number >> 27)) * 0x94d049bb133111eb;
    return number ^ (number >> 31);
}

/// From 0 up to 1.
inline double unit(std::uint64_t random) {
    return static_cast<double>(random >> 11) * 0x1p-53;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
