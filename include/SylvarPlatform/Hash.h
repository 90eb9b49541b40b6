// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Export.h>
#include <SylvarPlatform/suites/AttributeSuite.h>

#include <cstdint>
#include <functional>
#include <string>
#include <tuple>

namespace Sylvar3::internal::OvAttribute {

/// The 128-bit content hash of an attribute: equal content, equal hash, in this process and in
/// every other. A plain value.
class SYLVAR_PLATFORM_API Hash {
public:
    /// Zero: the hash of the null attribute.
    Hash() noexcept : Hash(OvAttributeHash{}) {}
    explicit Hash(OvAttributeHash hash) noexcept : words_{hash.words[0], hash.words[1]} {}

    /// 32 lower-case hexadecimal digits, the first word in front.
    std::string str() const;

    /// Word 0 or 1.
    std::uint64_t word(int index) const noexcept { return words_[index]; }

    friend bool operator==(const Hash& a, const Hash& b) noexcept {
        return a.words_[0] == b.words_[0] && a.words_[1] == b.words_[1];
    }
    friend bool operator!=(const Hash& a, const Hash& b) noexcept { return !(a == b); }
    friend bool operator<(const Hash& a, const Hash& b) noexcept {
        return std::tie(a.words_[0], a.words_[1]) < std::tie(b.words_[0], b.words_[1]);
    }

private:
    std::uint64_t words_[2];
};

}  // namespace Sylvar3::internal::OvAttribute

template <>
struct std::hash<Sylvar3::internal::OvAttribute::Hash> {
    std::size_t operator()(const Sylvar3::internal::OvAttribute::Hash& value) const noexcept {
        return value.word(0);
    }
};
