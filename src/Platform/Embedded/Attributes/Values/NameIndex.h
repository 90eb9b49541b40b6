// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>

namespace Sylvar3::internal::OvAttribute::Embedded {

/// Finds places by hash: an open-addressed table of `slots` entries, a power of two and at least
/// twice the number of places. An entry is a place plus one; 0 is free.
namespace NameIndex {

/// Lists up to this length are looked through one by one.
constexpr std::size_t kLongestPlainList = 8;

/// How many slots a list of `count` names needs; 0 for a short one.
inline std::size_t slotsFor(std::size_t count) {
    if (count <= kLongestPlainList) {
        return 0;
    }
    std::size_t slots = 32;
    while (slots < count * 2) {
        slots *= 2;
    }
    return slots;
}

inline void insert(std::uint32_t* table,
                   std::size_t slots,
                   std::uint32_t hash,
                   std::uint32_t place) {
    std::size_t slot = hash & (slots - 1);
    while (table[slot] != 0) {
        slot = (slot + 1) & (slots - 1);
    }
    table[slot] = place + 1;
}

/// The first place with that hash for which `matches(place)`, or -1.
template <class Matches>
std::int64_t find(const std::uint32_t* table,
                  std::size_t slots,
                  std::uint32_t hash,
                  Matches matches) {
    for (std::size_t slot = hash & (slots - 1); table[slot] != 0; slot = (slot + 1) & (slots - 1)) {
        if (matches(table[slot] - 1)) {
            return std::int64_t{table[slot]} - 1;
        }
    }
    return -1;
}

}  // namespace NameIndex

}  // namespace Sylvar3::internal::OvAttribute::Embedded
