// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Patterns/PathPatterns.h"

#include "Platform/Embedded/Ops/Patterns/PatternList.h"
#include "Platform/Embedded/Ops/Patterns/PatternWalk.h"
#include "Platform/Embedded/Runtime/Op.h"

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace {

/// Takes the front name of what is left of a path: "/", a name, and the rest.
std::string_view takeName(std::string_view& path) {
    path.remove_prefix(1);
    const std::string_view name = path.substr(0, path.find('/'));
    path.remove_prefix(name.size());
    return name;
}

PathPattern::Name readName(std::string_view text) {
    if (text.empty()) {
        throw OpError("one of its names is empty");
    }
    if (text == "**") {
        return {std::string(text), true, {}};
    }
    return {std::string(text), false, NamePattern::alternativesOf(text)};
}

PathPattern read(std::string_view text) {
    PathPattern pattern;
    pattern.takesAway = !text.empty() && text.front() == '!';
    text.remove_prefix(pattern.takesAway ? 1 : 0);
    if (text.size() < 2 || text.front() != '/') {
        throw OpError("it has to begin with a \"/\" and a name");
    }
    while (!text.empty()) {
        pattern.names.push_back(readName(takeName(text)));
    }
    return pattern;
}

}  // namespace

PathPatterns::PathPatterns(const std::vector<std::string>& patterns)
    : tree_(readPatterns("pattern", patterns, read)) {}

bool PathPatterns::matches(std::string_view path) const {
    const bool isAboveAll = path.empty();
    PatternWalk walk(tree_);
    while (!path.empty() && !walk.isOver()) {
        walk.enter(takeName(path));
    }
    return !isAboveAll && walk.matches();
}

bool PathPatterns::isWithinMatch(std::string_view path) const {
    PatternWalk walk(tree_);
    Verdict nearest = kNoVerdict;
    while (!path.empty() && !walk.isOver()) {
        walk.enter(takeName(path));
        const Verdict here = walk.verdict();
        nearest = here == kNoVerdict ? nearest : here;
    }
    return isMatch(nearest);
}

bool PathPatterns::canMatchBelow(std::string_view path) const {
    PatternWalk walk(tree_);
    while (!path.empty() && !walk.isOver()) {
        walk.enter(takeName(path));
    }
    return walk.canMatchBelow();
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
