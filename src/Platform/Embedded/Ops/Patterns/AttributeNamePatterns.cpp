// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Patterns/AttributeNamePatterns.h"

#include "Platform/Embedded/Runtime/AttributeEdit.h"
#include "Platform/Embedded/Runtime/Op.h"

#include <boost/container/small_vector.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::Embedded::asGroup;
using OvAttribute::Embedded::GroupValue;

namespace {

using Piece = AttributeNamePatterns::Piece;
using Pieces = std::vector<Piece>;

constexpr std::size_t kMostPieces = 32;

Pieces piecesOf(std::string_view name) {
    Pieces pieces;
    for (std::size_t dot = 0; dot != std::string_view::npos;) {
        dot = name.find('.');
        const std::string_view piece = name.substr(0, dot);
        if (piece.empty()) {
            throw OpError("one of its pieces is empty");
        }
        if (pieces.size() == kMostPieces) {
            throw OpError("it has more than " + std::to_string(kMostPieces) + " pieces");
        }
        pieces.push_back(NamePattern::alternativesOf(piece));
        name.remove_prefix(dot == std::string_view::npos ? name.size() : dot + 1);
    }
    return pieces;
}

bool matches(const Piece& piece, std::string_view name) {
    return std::any_of(piece.begin(), piece.end(), [&](const NamePattern& pattern) {
        return pattern.matches(name);
    });
}

/// The names of which so many pieces have matched already.
using Open = boost::container::small_vector<const Pieces*, 8>;

/// What the names do to one child of a group: those that reach further, or the end of the child.
struct Outcome {
    bool isMatched = false;
    Open further{};
};

Outcome match(const Open& names, std::size_t depth, std::string_view child) {
    Outcome outcome;
    for (const Pieces* const pieces : names) {
        if (matches((*pieces)[depth], child)) {
            if (depth + 1 == pieces->size()) {
                outcome.isMatched = true;
            } else {
                outcome.further.push_back(pieces);
            }
        }
    }
    return outcome;
}

// NOLINTNEXTLINE(misc-no-recursion): as deep as a name has pieces, and no deeper.
GroupValue* withoutThose(const Open& names,
                         std::size_t depth,
                         GroupValue& group,
                         LocationWriter& out) {
    AttributeEdit rest(group);
    for (std::int64_t i = 0; i < group.size(); ++i) {
        const std::string_view name = group.shape->name(i);
        const Outcome outcome = match(names, depth, name);
        if (outcome.isMatched) {
            rest.remove(name);
        } else if (GroupValue* const child = asGroup(group[i]); child && !outcome.further.empty()) {
            rest.set(name, withoutThose(outcome.further, depth + 1, *child, out));
        }
    }
    return rest.write(out);
}

}  // namespace

AttributeNamePatterns::AttributeNamePatterns(const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        try {
            names_.push_back(piecesOf(name));
        } catch (const OpError& error) {
            throw OpError("attribute name \"" + name + "\": " + error.what());
        }
    }
}

GroupValue* AttributeNamePatterns::without(GroupValue& attributes, LocationWriter& out) const {
    Open all;
    for (const Pieces& pieces : names_) {
        all.push_back(&pieces);
    }
    return withoutThose(all, 0, attributes, out);
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
