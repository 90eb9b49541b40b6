// SPDX-License-Identifier: Apache-2.0
#include "unit/Ops/NaivePatterns.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace ovtest {

namespace {

/// Whether one of the bytes between the brackets of "[a-z]" is `byte`.
bool naiveSet(const std::string& set, char byte) {
    std::string bytes;
    for (std::size_t i = 0; i < set.size(); ++i) {
        if (i + 2 < set.size() && set[i + 1] == '-') {
            for (char c = set[i]; c <= set[i + 2]; ++c) {
                bytes += c;
            }
            i += 2;
        } else {
            bytes += set[i];
        }
    }
    return bytes.find(byte) != std::string::npos;
}

/// A matcher of names that tries everything.
bool naiveName(const std::string& pattern, const std::string& name) {
    if (pattern.empty()) {
        return name.empty();
    }
    const std::string rest = pattern.substr(1);
    if (pattern[0] == '{') {
        const std::size_t close = pattern.find('}');
        for (std::size_t at = 0; at < close;) {
            const std::size_t end = std::min(pattern.find(',', at + 1), close);
            if (naiveName(pattern.substr(at + 1, end - at - 1) + pattern.substr(close + 1), name)) {
                return true;
            }
            at = end;
        }
        return false;
    }
    if (pattern[0] == '*') {
        return naiveName(rest, name) || (!name.empty() && naiveName(pattern, name.substr(1)));
    }
    if (name.empty()) {
        return false;
    }
    if (pattern[0] == '[') {
        const std::size_t close = pattern.find(']', 2);
        const bool isInverted = pattern[1] == '!';
        const std::size_t first = isInverted ? 2 : 1;
        return naiveSet(pattern.substr(first, close - first), name[0]) != isInverted &&
               naiveName(pattern.substr(close + 1), name.substr(1));
    }
    return (pattern[0] == '?' || pattern[0] == name[0]) && naiveName(rest, name.substr(1));
}

bool naivePath(const Texts& pattern, std::size_t at, const Texts& path, std::size_t name) {
    if (at == pattern.size()) {
        return name == path.size();
    }
    if (pattern[at] == "**") {
        return naivePath(pattern, at + 1, path, name) ||
               (name < path.size() && naivePath(pattern, at, path, name + 1));
    }
    return name < path.size() && naiveName(pattern[at], path[name]) &&
           naivePath(pattern, at + 1, path, name + 1);
}

Texts namesOf(const std::string& path) {
    Texts names;
    for (const char byte : path) {
        if (byte == '/') {
            names.emplace_back();
        } else {
            names.back() += byte;
        }
    }
    return names;
}

/// What the last pattern says that says something of the path.
std::optional<bool> naiveVerdict(const Texts& patterns, const std::string& path) {
    std::optional<bool> verdict;
    for (const std::string& pattern : patterns) {
        const bool takesAway = pattern[0] == '!';
        if (naivePath(namesOf(pattern.substr(takesAway ? 1 : 0)), 0, namesOf(path), 0)) {
            verdict = !takesAway;
        }
    }
    return verdict;
}

}  // namespace

bool naiveMatches(const Texts& patterns, const std::string& path) {
    return !path.empty() && naiveVerdict(patterns, path).value_or(false);
}

bool naiveIsWithinMatch(const Texts& patterns, std::string path) {
    for (; !path.empty(); path.erase(path.rfind('/'))) {
        if (const std::optional<bool> verdict = naiveVerdict(patterns, path)) {
            return *verdict;
        }
    }
    return false;
}

}  // namespace ovtest
