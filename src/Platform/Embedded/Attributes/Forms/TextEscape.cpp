// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Forms/TextEscape.h"

#include <cstdint>
#include <cstring>

namespace Sylvar3::internal::OvAttribute::Embedded::TextEscape {

namespace {

constexpr std::string_view kDigits = "0123456789ABCDEF";

unsigned byteAt(std::string_view text, std::size_t index) {
    return static_cast<unsigned char>(text[index]);
}

bool isWithin(std::string_view text, std::size_t index, unsigned least, unsigned most) {
    return index < text.size() && byteAt(text, index) >= least && byteAt(text, index) <= most;
}

bool isTail(std::string_view text, std::size_t index) {
    return isWithin(text, index, 0x80, 0xBF);
}

int digitOf(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

std::size_t threeByteSpan(std::string_view text) {
    const unsigned first = byteAt(text, 0);
    const unsigned least = first == 0xE0 ? 0xA0 : 0x80;
    const unsigned most = first == 0xED ? 0x9F : 0xBF;
    return isWithin(text, 1, least, most) && isTail(text, 2) ? 3 : 0;
}

std::size_t fourByteSpan(std::string_view text) {
    const unsigned first = byteAt(text, 0);
    const unsigned least = first == 0xF0 ? 0x90 : 0x80;
    const unsigned most = first == 0xF4 ? 0x8F : 0xBF;
    return isWithin(text, 1, least, most) && isTail(text, 2) && isTail(text, 3) ? 4 : 0;
}

/// The length of the character at the front when it stands as it is, otherwise 0.
std::size_t plainCharacter(std::string_view text) {
    const unsigned first = byteAt(text, 0);
    if (first < 0x80) {
        const bool isControl = first < 0x20 || first == 0x7F;
        return isControl || (first == '\\' && isAt(text)) ? 0 : 1;
    }
    const std::size_t span = utf8Span(text);
    const bool isC1 = span == 2 && first == 0xC2 && byteAt(text, 1) < 0xA0;
    const bool isNone =
        span == 3 && first == 0xEF && byteAt(text, 1) == 0xBF && byteAt(text, 2) >= 0xBE;
    return isC1 || isNone ? 0 : span;
}

/// Whether all eight bytes are ASCII from the space up, with no backslash and no DEL.
bool isPlainWord(const char* at) {
    constexpr std::uint64_t kOnes = 0x0101010101010101;
    constexpr std::uint64_t kHighs = 0x8080808080808080;
    const auto hasZero = [](std::uint64_t word) { return (word - kOnes) & ~word & kHighs; };
    std::uint64_t word = 0;
    std::memcpy(&word, at, sizeof word);
    const std::uint64_t isSmall = (word - kOnes * 0x20) & ~word & kHighs;
    return ((word & kHighs) | isSmall | hasZero(word ^ (kOnes * '\\')) |
            hasZero(word ^ (kOnes * 0x7F))) == 0;
}

}  // namespace

std::size_t utf8Span(std::string_view text) {
    const unsigned first = text.empty() ? 0x80 : byteAt(text, 0);
    if (first < 0x80) {
        return 1;
    }
    if (first >= 0xC2 && first <= 0xDF) {
        return isTail(text, 1) ? 2 : 0;
    }
    if (first >= 0xE0 && first <= 0xEF) {
        return threeByteSpan(text);
    }
    return first >= 0xF0 && first <= 0xF4 ? fourByteSpan(text) : 0;
}

bool isAt(std::string_view text) {
    return text.size() >= kLength && text[0] == '\\' && text[1] == 'x' && digitOf(text[2]) >= 0 &&
           digitOf(text[3]) >= 0;
}

std::size_t plainSpan(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size()) {
        if (at + 8 <= text.size() && isPlainWord(text.data() + at)) {
            at += 8;
            continue;
        }
        const std::size_t span = plainCharacter(text.substr(at));
        if (span == 0) {
            return at;
        }
        at += span;
    }
    return at;
}

char* write(char* to, char byte) {
    const auto bits = static_cast<unsigned char>(byte);
    to[0] = '\\';
    to[1] = 'x';
    to[2] = kDigits[bits >> 4];
    to[3] = kDigits[bits & 15];
    return to + kLength;
}

std::string escaped(std::string_view text) {
    std::string result;
    while (true) {
        const std::size_t span = plainSpan(text);
        result.append(text.substr(0, span));
        if (span == text.size()) {
            return result;
        }
        char escape[kLength];
        write(escape, text[span]);
        result.append(escape, kLength);
        text.remove_prefix(span + 1);
    }
}

std::size_t unescape(char* text, std::size_t length) {
    const void* const first = length == 0 ? nullptr : std::memchr(text, '\\', length);
    if (!first) {
        return length;
    }
    const std::string_view all(text, length);
    std::size_t from = static_cast<std::size_t>(static_cast<const char*>(first) - text);
    std::size_t to = from;
    while (from < length) {
        const bool isEscape = text[from] == '\\' && isAt(all.substr(from));
        text[to++] = isEscape
                         ? static_cast<char>(digitOf(text[from + 2]) * 16 + digitOf(text[from + 3]))
                         : text[from];
        from += isEscape ? kLength : 1;
    }
    return to;
}

std::string unescaped(std::string_view text) {
    std::string result(text);
    result.resize(unescape(result.data(), result.size()));
    return result;
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded::TextEscape
