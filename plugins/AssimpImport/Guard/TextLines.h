// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace AssimpImport {

/// The text with "\n" for every line end; blank lines may come of it.
std::string withPlainLineEnds(std::string text);

/// The words of a line, between white space.
std::vector<std::string> wordsOf(const std::string& line);

/// The number that `digits` begin with. Throws `ImportError` when a file of `size` bytes cannot
/// hold as many elements.
std::int64_t announcedCount(const std::string& digits, std::int64_t size);

}  // namespace AssimpImport
