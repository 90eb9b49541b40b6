// SPDX-License-Identifier: Apache-2.0
#include "Print/WrappedText.h"

#include "Print/SafeText.h"

#include <algorithm>

namespace ovscene {
namespace {

constexpr std::string_view kBreaks = " \n";

}  // namespace

std::vector<std::string> wrappedLines(std::string_view text, std::size_t columns) {
    std::vector<std::string> lines(1);
    std::size_t width = 0;
    for (std::size_t end = 0; end < text.size();) {
        const std::size_t begin = std::min(text.find_first_not_of(kBreaks, end), text.size());
        end = std::min(text.find_first_of(kBreaks, begin), text.size());
        const std::string word = safeText(text.substr(begin, end - begin));
        const std::size_t wordWidth = displayWidth(word);
        if (width > 0 && width + 1 + wordWidth > columns) {
            lines.emplace_back();
            width = 0;
        }
        const bool isFirst = width == 0;
        lines.back().append(isFirst || word.empty() ? "" : " ").append(word);
        width += wordWidth + (isFirst ? 0 : 1);
    }
    return lines;
}

std::vector<std::string_view> paragraphsOf(std::string_view text) {
    constexpr std::string_view kGap = "\n\n";
    std::vector<std::string_view> paragraphs;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(kGap), text.size());
        if (end > 0) {
            paragraphs.push_back(text.substr(0, end));
        }
        text.remove_prefix(std::min(end + kGap.size(), text.size()));
    }
    return paragraphs;
}

}  // namespace ovscene
