// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Services/FrameNumber.h"

#include <algorithm>
#include <string_view>

namespace Sylvar3::internal::Embedded {

namespace {

/// A place for the frame at the begin of a text; length 0 when there is none.
struct FramePlace {
    std::size_t length;
    std::size_t width;
};

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

FramePlace hashes(std::string_view text) {
    const std::size_t length = std::min(text.find_first_not_of('#'), text.size());
    return length < 2 ? FramePlace{0, 0} : FramePlace{length, length};
}

FramePlace percent(std::string_view text) {
    if (text.size() >= 2 && text[1] == 'd') {
        return {2, 0};
    }
    if (text.size() < 4 || text[1] != '0') {
        return {0, 0};
    }
    std::size_t at = 2;
    std::size_t width = 0;
    for (; at < text.size() && at < 4 && isDigit(text[at]); ++at) {
        width = width * 10 + static_cast<std::size_t>(text[at] - '0');
    }
    const bool isWhole = width != 0 && at < text.size() && text[at] == 'd';
    return isWhole ? FramePlace{at + 1, width} : FramePlace{0, 0};
}

FramePlace placeAt(std::string_view text) {
    return text[0] == '#' ? hashes(text) : text[0] == '%' ? percent(text) : FramePlace{0, 0};
}

std::string padded(int frame, std::size_t width) {
    std::string digits = std::to_string(frame);
    if (digits.size() < width) {
        digits.insert(frame < 0 ? 1 : 0, width - digits.size(), '0');
    }
    return digits;
}

}  // namespace

std::string withFrameNumber(const std::string& text, int frame) {
    std::string_view rest = text;
    std::string filled;
    while (!rest.empty()) {
        const FramePlace place = placeAt(rest);
        if (place.length != 0) {
            filled += padded(frame, place.width);
            rest.remove_prefix(place.length);
        } else {
            const bool isEscape = rest.substr(0, 2) == "%%";
            const std::size_t copied = isEscape ? 2 : 1;
            filled += rest.substr(0, copied);
            rest.remove_prefix(copied);
        }
    }
    return filled;
}

}  // namespace Sylvar3::internal::Embedded
