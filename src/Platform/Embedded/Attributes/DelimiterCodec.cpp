// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/DelimiterCodec.h>

#include <cstddef>

namespace Sylvar3::internal::OvAttribute {
namespace {

constexpr char kDigits[] = "0123456789ABCDEF";
constexpr std::string_view kDelimiters = "./%";

int digitValue(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// The byte that an escape at `at` stands for, or -1 when it is malformed.
int escapedByte(std::string_view text, std::size_t at) {
    if (text.size() - at < 3) {
        return -1;
    }
    const int high = digitValue(text[at + 1]);
    const int low = digitValue(text[at + 2]);
    return high < 0 || low < 0 ? -1 : high * 16 + low;
}

void appendEscape(std::string& text, char c) {
    const auto byte = static_cast<unsigned char>(c);
    text += '%';
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
}

}  // namespace

std::string DelimiterEncode(const std::string& name) {
    std::string encoded;
    encoded.reserve(name.size());
    for (const char c : name) {
        if (kDelimiters.find(c) == std::string_view::npos) {
            encoded += c;
        } else {
            appendEscape(encoded, c);
        }
    }
    return encoded;
}

std::string DelimiterDecode(const std::string& encoded) {
    std::string name;
    DelimiterDecodeAppend(encoded, name);
    return name;
}

void DelimiterDecodeAppend(std::string_view encoded, std::string& text) {
    std::size_t done = 0;
    for (auto at = encoded.find('%'); at != std::string_view::npos; at = encoded.find('%', at)) {
        const int byte = escapedByte(encoded, at);
        if (byte < 0) {
            ++at;
            continue;
        }
        text.append(encoded, done, at - done);
        text += static_cast<char>(byte);
        at += 3;
        done = at;
    }
    text.append(encoded, done);
}

}  // namespace Sylvar3::internal::OvAttribute
