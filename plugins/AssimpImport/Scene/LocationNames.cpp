// SPDX-License-Identifier: Apache-2.0
#include "Scene/LocationNames.h"

#include <algorithm>

namespace AssimpImport {
namespace {

unsigned char byteAt(const std::string& text, std::size_t place) {
    return place < text.size() ? static_cast<unsigned char>(text[place]) : 0;
}

bool continues(const std::string& text, std::size_t place) {
    return (byteAt(text, place) & 0xC0U) == 0x80U;
}

// The second byte rules out overlong forms, surrogates and what lies beyond U+10FFFF.
bool secondByteFits(unsigned char first, unsigned char second) {
    switch (first) {
        case 0xE0:
            return second >= 0xA0;
        case 0xED:
            return second < 0xA0;
        case 0xF0:
            return second >= 0x90;
        case 0xF4:
            return second < 0x90;
        default:
            return true;
    }
}

std::size_t lengthAnnounced(unsigned char first) {
    if (first < 0x80) {
        return 1;
    }
    if (first >= 0xC2 && first < 0xE0) {
        return 2;
    }
    if (first >= 0xE0 && first < 0xF0) {
        return 3;
    }
    return first >= 0xF0 && first < 0xF5 ? 4 : 0;
}

// The length of the character at `place`; 0 when its bytes are no UTF-8.
std::size_t characterLength(const std::string& text, std::size_t place) {
    const unsigned char first = byteAt(text, place);
    const std::size_t length = lengthAnnounced(first);
    for (std::size_t i = 1; i < length; ++i) {
        if (!continues(text, place + i)) {
            return 0;
        }
    }
    return length < 2 || secondByteFits(first, byteAt(text, place + 1)) ? length : 0;
}

bool isAllowed(unsigned char c) {
    return c >= 0x20 && c != 0x7F && c != '/' && c != '.' && c != '%';
}

}  // namespace

std::string safeName(const std::string& original, const std::string& otherwise) {
    std::string name;
    for (std::size_t place = 0; place < original.size();) {
        const std::size_t length = characterLength(original, place);
        if (length > 0 && isAllowed(byteAt(original, place))) {
            name.append(original, place, length);
        } else {
            name += '_';
        }
        place += std::max<std::size_t>(length, 1);
    }
    return name.empty() ? otherwise : name;
}

std::string SiblingNames::take(const std::string& name) {
    if (taken_.insert(name).second) {
        return name;
    }
    std::uint64_t& suffix = suffixes_.emplace(name, 1).first->second;
    for (;;) {
        std::string candidate = name + "_" + std::to_string(++suffix);
        if (taken_.insert(candidate).second) {
            return candidate;
        }
    }
}

}  // namespace AssimpImport
