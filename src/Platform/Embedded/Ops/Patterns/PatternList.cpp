// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Patterns/PatternList.h"

#include "Platform/Embedded/Runtime/Op.h"

#include <cstddef>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace {

/// How much text the braces of a list may make of it.
constexpr std::size_t kMostBraceBytes = 1 << 24;

/// For a message.
std::string shortened(const std::string& text) {
    constexpr std::size_t kMostBytes = 200;
    return text.size() <= kMostBytes ? text : text.substr(0, kMostBytes) + "...";
}

std::size_t bytesOf(const PathPattern& pattern) {
    std::size_t bytes = 0;
    for (const PathPattern::Name& name : pattern.names) {
        for (const NamePattern& alternative : name.alternatives) {
            bytes += name.alternatives.size() > 1 ? alternative.text().size() : 0;
        }
    }
    return bytes;
}

}  // namespace

std::vector<PathPattern> readPatterns(const char* kind,
                                      const std::vector<std::string>& texts,
                                      ReadPattern read) {
    std::vector<PathPattern> patterns;
    std::size_t braceBytes = 0;
    for (const std::string& text : texts) {
        try {
            braceBytes += bytesOf(patterns.emplace_back(read(text)));
            if (braceBytes > kMostBraceBytes) {
                throw OpError("with it the list's braces stand for more than " +
                              std::to_string(kMostBraceBytes) + " bytes");
            }
        } catch (const OpError& error) {
            throw OpError(std::string(kind) + " \"" + shortened(text) + "\": " + error.what());
        }
    }
    return patterns;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
