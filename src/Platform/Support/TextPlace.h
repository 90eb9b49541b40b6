// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

/// Where in a text a fault stands, for readers of JSON that tell it to people. Pure; any thread.
namespace Sylvar3::internal::Support {

/// "line L, column C: " and what is wrong at the offset. Both count from 1, columns in characters.
inline std::string placed(std::string_view text, std::size_t offset, const std::string& what) {
    const std::string_view before = text.substr(0, offset);
    const std::size_t lineBreak = before.rfind('\n');
    const std::string_view line =
        lineBreak == std::string_view::npos ? before : before.substr(lineBreak + 1);
    const auto isCharacter = [](char c) { return (c & 0xC0) != 0x80; };
    return "line " + std::to_string(std::count(before.begin(), before.end(), '\n') + 1) +
           ", column " + std::to_string(std::count_if(line.begin(), line.end(), isCharacter) + 1) +
           ": " + what;
}

/// The offset of the mark that opens the string whose closing mark ends at `end`: the first mark
/// before it that an even number of backslashes stands in front of.
inline std::size_t stringBegin(std::string_view text, std::size_t end) {
    std::size_t at = end - 1;
    bool isEscaped = true;
    while (isEscaped && at != 0) {
        at = text.rfind('"', at - 1);
        std::size_t first = at;
        while (first != 0 && text[first - 1] == '\\') {
            --first;
        }
        isEscaped = (at - first) % 2 != 0;
    }
    return at;
}

}  // namespace Sylvar3::internal::Support
