// SPDX-License-Identifier: Apache-2.0
#include "Print/SafeText.h"

#include <cstdint>

namespace ovscene {
namespace {

constexpr std::string_view kCut = "...";

struct Character {
    std::uint32_t code = 0;
    std::size_t size = 0;  // 0: the bytes are not UTF-8
};

std::uint8_t byteAt(std::string_view text, std::size_t index) {
    return static_cast<std::uint8_t>(text[index]);
}

std::size_t sequenceLength(std::uint8_t lead) {
    if (lead < 0x80) {
        return 1;
    }
    if (lead >= 0xC2 && lead < 0xE0) {
        return 2;
    }
    if (lead >= 0xE0 && lead < 0xF0) {
        return 3;
    }
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

bool isScalarValue(std::uint32_t code, std::size_t size) {
    const bool overlong = (size == 3 && code < 0x800) || (size == 4 && code < 0x10000);
    const bool surrogate = code >= 0xD800 && code < 0xE000;
    return !overlong && !surrogate && code <= 0x10FFFF;
}

Character decode(std::string_view text, std::size_t at) {
    const std::uint8_t lead = byteAt(text, at);
    const std::size_t size = sequenceLength(lead);
    if (size == 0 || at + size > text.size()) {
        return {};
    }
    std::uint32_t code = size == 1 ? lead : lead & (0x7FU >> size);
    for (std::size_t i = 1; i < size; ++i) {
        const std::uint8_t next = byteAt(text, at + i);
        if ((next & 0xC0U) != 0x80U) {
            return {};
        }
        code = (code << 6U) | (next & 0x3FU);
    }
    return isScalarValue(code, size) ? Character{code, size} : Character{};
}

bool within(std::uint32_t code, std::uint32_t first, std::uint32_t last) {
    return code >= first && code <= last;
}

bool isControl(std::uint32_t code) {
    return code < 0x20 || within(code, 0x7F, 0x9F) || within(code, 0x200E, 0x200F) ||
           within(code, 0x2028, 0x202E) || within(code, 0x2066, 0x2069) ||
           within(code, 0xFFFE, 0xFFFF) || code == 0x61C;
}

bool isHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool looksLikeEscape(std::string_view text, std::size_t at) {
    return text.size() - at >= 4 && text[at] == '\\' && text[at + 1] == 'x' &&
           isHexDigit(text[at + 2]) && isHexDigit(text[at + 3]);
}

void appendEscaped(std::string& out, std::string_view bytes) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const std::uint8_t byte = byteAt(bytes, i);
        out.append({'\\', 'x', kDigits[byte >> 4U], kDigits[byte & 0xFU]});
    }
}

std::size_t appendCharacter(std::string& out, std::string_view text, std::size_t at) {
    const Character character = decode(text, at);
    const std::size_t size = character.size == 0 ? 1 : character.size;
    const std::string_view bytes = text.substr(at, size);
    if (character.size == 0 || isControl(character.code) || looksLikeEscape(text, at)) {
        appendEscaped(out, bytes);
    } else {
        out.append(bytes);
    }
    return at + size;
}

bool isContinuation(char c) {
    return (static_cast<std::uint8_t>(c) & 0xC0U) == 0x80U;
}

std::string firstColumns(std::string_view safe, std::size_t columns) {
    std::size_t end = 0;
    for (std::size_t shown = 0; end < safe.size(); ++end) {
        if (!isContinuation(safe[end]) && shown++ == columns) {
            break;
        }
    }
    return std::string(safe.substr(0, end));
}

}  // namespace

std::string safeText(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        at = appendCharacter(out, text, at);
    }
    return out;
}

std::string safeText(std::string_view text, std::size_t columns) {
    constexpr std::size_t kLongestCharacter = 4;
    const std::string_view enough = text.substr(0, (columns + 1) * kLongestCharacter);
    std::string safe = safeText(enough);
    if (enough.size() == text.size() && displayWidth(safe) <= columns) {
        return safe;
    }
    const std::size_t kept = columns > kCut.size() ? columns - kCut.size() : 0;
    return firstColumns(safe, kept).append(kCut);
}

std::size_t displayWidth(std::string_view safe) {
    std::size_t width = 0;
    for (const char c : safe) {
        width += isContinuation(c) ? 0 : 1;
    }
    return width;
}

}  // namespace ovscene
