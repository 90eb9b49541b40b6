// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/PathPatterns.h"

#include "Platform/Embedded/Runtime/Op.h"

#include <algorithm>
#include <cstddef>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace {

/// The names of an absolute path.
std::vector<std::string_view> namesOf(std::string_view path) {
    std::vector<std::string_view> names;
    for (std::size_t begin = 1; begin <= path.size();) {
        const std::size_t end = std::min(path.find('/', begin), path.size());
        names.push_back(path.substr(begin, end - begin));
        begin = end + 1;
    }
    return names;
}

}  // namespace

PathPatterns::PathPatterns(const std::vector<std::string>& patterns) {
    for (const std::string& text : patterns) {
        try {
            Pattern& pattern = patterns_.emplace_back();
            std::string_view rest = text;
            pattern.takesAway = !rest.empty() && rest.front() == '!';
            rest.remove_prefix(pattern.takesAway ? 1 : 0);
            if (rest.size() < 2 || rest.front() != '/') {
                throw OpError("it has to begin with a \"/\" and a name");
            }
            for (const std::string_view name : namesOf(rest)) {
                if (name.empty()) {
                    throw OpError("one of its names is empty");
                }
                pattern.names.emplace_back(name);
            }
        } catch (const OpError& error) {
            throw OpError("pattern \"" + text + "\": " + error.what());
        }
    }
}

bool PathPatterns::matches(std::string_view path) const {
    const std::vector<std::string_view> names = namesOf(path);
    for (auto pattern = patterns_.rbegin(); pattern != patterns_.rend(); ++pattern) {
        if (pattern->matches(names)) {
            return !pattern->takesAway;
        }
    }
    return false;
}

bool PathPatterns::Pattern::matches(const std::vector<std::string_view>& path) const {
    // As in a name: of the "**" passed so far only the last one can have to give way.
    std::size_t name = 0;
    std::size_t at = 0;
    std::size_t afterSpan = names.size() + 1;
    std::size_t retry = 0;
    while (at < path.size()) {
        if (name < names.size() && names[name].spansNames()) {
            afterSpan = ++name;
            retry = at;
        } else if (name < names.size() && names[name].matches(path[at])) {
            ++name;
            ++at;
        } else if (afterSpan <= names.size()) {
            name = afterSpan;
            at = ++retry;
        } else {
            return false;
        }
    }
    while (name < names.size() && names[name].spansNames()) {
        ++name;
    }
    return name == names.size();
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
