// SPDX-License-Identifier: Apache-2.0
// Compiles a list of patterns, one a line up to an empty line, and asks it about the paths on the
// lines behind and all that are above them. What it says of a path must agree with what it says of
// those above it, and with what its patterns say one by one.
#include "Platform/Embedded/Ops/Patterns/PathPatterns.h"
#include "Platform/Embedded/Runtime/Op.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvSylvar::Embedded;

constexpr std::size_t kMostPatterns = 64;
constexpr std::size_t kMostPaths = 64;
constexpr std::size_t kMostBytes = 1 << 12;

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

std::string_view takeLine(std::string_view& text) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line;
}

/// A pattern of the list by itself.
struct Single {
    bool takesAway;
    PathPatterns pattern;
};

/// The lines up to an empty one, but for those that are no patterns.
std::vector<std::string> takePatterns(std::string_view& text, std::vector<Single>& singles) {
    std::vector<std::string> list;
    while (!text.empty() && list.size() < kMostPatterns) {
        const std::string line(takeLine(text));
        if (line.empty()) {
            break;
        }
        try {
            const PathPatterns alone({line});
            const bool takesAway = line[0] == '!';
            require(!takesAway || !alone.canMatchBelow(""));
            singles.push_back({takesAway, PathPatterns({line.substr(takesAway ? 1 : 0)})});
            list.push_back(line);
        } catch (const OpError&) {
            continue;
        }
    }
    return list;
}

bool isPath(std::string_view text) {
    return text.size() > 1 && text.front() == '/' && text.back() != '/' &&
           text.find("//") == std::string_view::npos;
}

std::string_view parentOf(std::string_view path) {
    return path.substr(0, path.empty() ? 0 : path.rfind('/'));
}

void requireSameAsOneByOne(const PathPatterns& patterns,
                           const std::vector<Single>& singles,
                           std::string_view path) {
    bool matches = false;
    bool isWithinMatch = patterns.isWithinMatch(parentOf(path));
    bool canMatchBelow = false;
    for (const Single& single : singles) {
        if (single.pattern.matches(path)) {
            matches = isWithinMatch = !single.takesAway;
        }
        canMatchBelow |= !single.takesAway && single.pattern.canMatchBelow(path);
    }
    require(patterns.matches(path) == matches);
    require(patterns.isWithinMatch(path) == isWithinMatch);
    require(canMatchBelow || !patterns.canMatchBelow(path));
}

/// Of the path and all above it, up to "".
void requireSound(const PathPatterns& patterns,
                  const std::vector<Single>& singles,
                  std::string_view path) {
    bool isSomethingBelow = false;
    while (!path.empty()) {
        requireSameAsOneByOne(patterns, singles, path);
        const bool matches = patterns.matches(path);
        const bool canMatchBelow = patterns.canMatchBelow(path);
        require(canMatchBelow || !isSomethingBelow);
        isSomethingBelow = matches || canMatchBelow;
        path = parentOf(path);
    }
    requireSameAsOneByOne(patterns, singles, "");
    require(!patterns.matches("") && !patterns.isWithinMatch(""));
    require(patterns.canMatchBelow("") || !isSomethingBelow);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view text(reinterpret_cast<const char*>(data), std::min(size, kMostBytes));
    std::vector<Single> singles;
    const PathPatterns patterns(takePatterns(text, singles));
    requireSound(patterns, singles, "");
    for (std::size_t i = 0; i < kMostPaths && !text.empty(); ++i) {
        const std::string_view path = takeLine(text);
        if (isPath(path)) {
            requireSound(patterns, singles, path);
        }
    }
    return 0;
}
