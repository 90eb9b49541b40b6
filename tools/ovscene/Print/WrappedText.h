// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ovscene {

/// A text of one paragraph as lines of safe text, broken at spaces: at most `columns` wide, but for
/// words that are wider. At least one line, which can be empty.
std::vector<std::string> wrappedLines(std::string_view text, std::size_t columns);

/// The paragraphs of a text, which empty lines keep apart.
std::vector<std::string_view> paragraphsOf(std::string_view text);

}  // namespace ovscene
