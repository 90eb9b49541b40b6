// SPDX-License-Identifier: Apache-2.0
#pragma once

#define XXH_INLINE_ALL
#include <SylvarPlatform/suites/AttributeSuite.h>

#include <xxhash.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Sylvar3::internal::OvAttribute::Embedded {

/// The 128-bit digest of some bytes (XXH3). Neither word is ever zero, so that zero can stand for
/// "not known" and for the null attribute.
inline OvAttributeHash digestOf(const void* bytes, std::size_t size) {
    const XXH128_hash_t hash = XXH3_128bits(bytes, size);
    return {{hash.low64 ? hash.low64 : 1, hash.high64 ? hash.high64 : 1}};
}

/// The hash by which a name is found. It differs from process to process (by where the code was
/// loaded), so that nobody can prepare names that all fall into one place.
inline std::uint32_t nameHashOf(std::string_view name) {
    static constexpr char kHere = 0;
    return static_cast<std::uint32_t>(
        XXH3_64bits_withSeed(name.data(), name.size(), reinterpret_cast<std::uintptr_t>(&kHere)));
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
