// SPDX-License-Identifier: Apache-2.0
#include "Guard/TextLines.h"

#include "ImportError.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <sstream>

namespace AssimpImport {

std::string withPlainLineEnds(std::string text) {
    std::replace(text.begin(), text.end(), '\r', '\n');
    return text;
}

std::vector<std::string> wordsOf(const std::string& line) {
    std::istringstream words(line);
    return {std::istream_iterator<std::string>(words), std::istream_iterator<std::string>()};
}

std::int64_t announcedCount(const std::string& digits, std::int64_t size) {
    const unsigned long long count = std::strtoull(digits.c_str(), nullptr, 10);
    if (count > static_cast<unsigned long long>(size)) {
        throw ImportError("its header announces " + digits + " elements, more than it can hold");
    }
    return static_cast<std::int64_t>(count);
}

}  // namespace AssimpImport
