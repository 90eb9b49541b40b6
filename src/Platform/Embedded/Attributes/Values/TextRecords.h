// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace Sylvar3::internal::OvAttribute::Embedded {

/// Texts in a row, each as its length (32 bits), its bytes and a NUL: one run of bytes that tells
/// where each text ends, so that its digest tells too.
namespace TextRecord {

constexpr std::size_t kExtraBytes = sizeof(std::uint32_t) + 1;

/// Writes one record and returns where the next one goes.
inline char* write(char* at, std::string_view text) {
    const auto length = static_cast<std::uint32_t>(text.size());
    std::memcpy(at, &length, sizeof length);
    if (!text.empty()) {
        std::memcpy(at + sizeof length, text.data(), text.size());
    }
    at[sizeof length + text.size()] = '\0';
    return at + text.size() + kExtraBytes;
}

/// The text whose first byte is at `text`.
inline std::string_view at(const char* text) {
    std::uint32_t length = 0;
    std::memcpy(&length, text - sizeof length, sizeof length);
    return {text, length};
}

}  // namespace TextRecord

}  // namespace Sylvar3::internal::OvAttribute::Embedded
