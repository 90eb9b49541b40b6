// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/Hash.h>

namespace Sylvar3::internal::OvAttribute {

std::string Hash::str() const {
    constexpr const char* kDigits = "0123456789abcdef";
    std::string text;
    text.reserve(32);
    for (const std::uint64_t word : words_) {
        for (int shift = 60; shift >= 0; shift -= 4) {
            text.push_back(kDigits[(word >> shift) & 15]);
        }
    }
    return text;
}

}  // namespace Sylvar3::internal::OvAttribute
