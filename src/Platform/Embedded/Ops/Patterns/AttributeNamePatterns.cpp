// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Patterns/AttributeNamePatterns.h"

#include "Platform/Embedded/Ops/Patterns/PatternList.h"
#include "Platform/Embedded/Ops/Patterns/PatternWalk.h"
#include "Platform/Embedded/Runtime/AttributeEdit.h"
#include "Platform/Embedded/Runtime/Op.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::Embedded::asGroup;
using OvAttribute::Embedded::GroupValue;

namespace {

constexpr std::size_t kMostPieces = 32;

PathPattern read(std::string_view name) {
    PathPattern pattern;
    for (std::size_t dot = 0; dot != std::string_view::npos;) {
        dot = name.find('.');
        const std::string_view piece = name.substr(0, dot);
        if (piece.empty()) {
            throw OpError("one of its pieces is empty");
        }
        if (pattern.names.size() == kMostPieces) {
            throw OpError("it has more than " + std::to_string(kMostPieces) + " pieces");
        }
        pattern.names.push_back({std::string(piece), false, NamePattern::alternativesOf(piece)});
        name.remove_prefix(dot == std::string_view::npos ? name.size() : dot + 1);
    }
    return pattern;
}

/// A group that stands in many places is looked into in each of them.
constexpr int kMostGroups = 100'000;

/// The walk stands at the group.
// NOLINTNEXTLINE(misc-no-recursion): as deep as a name has pieces, and no deeper.
GroupValue* withoutMatches(const PatternWalk& walk,
                           GroupValue& group,
                           LocationWriter& out,
                           int& count) {
    if (++count > kMostGroups) {
        throw OpError("more than " + std::to_string(kMostGroups) + " groups lie in one another");
    }
    AttributeEdit rest(group);
    PatternWalk below = walk;
    for (std::int64_t i = 0; i < group.size(); ++i) {
        const std::string_view name = group.shape->name(i);
        below.enterFrom(walk, name);
        if (below.matches()) {
            rest.remove(name);
        } else if (GroupValue* const child = asGroup(group[i]); child && below.canMatchBelow()) {
            rest.set(name, withoutMatches(below, *child, out, count));
        }
    }
    return rest.write(out);
}

}  // namespace

AttributeNamePatterns::AttributeNamePatterns(const std::vector<std::string>& names)
    : tree_(readPatterns("attribute name", names, read)) {}

GroupValue* AttributeNamePatterns::without(GroupValue& attributes, LocationWriter& out) const {
    int count = 0;
    return withoutMatches(PatternWalk(tree_), attributes, out, count);
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
