// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Ops/Patterns/NamePattern.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// What a pattern says of the paths that it matches: its place in the list, from one, times two,
/// and one more unless it takes away. Of several the greatest decides.
using Verdict = std::uint32_t;

constexpr Verdict kNoVerdict = 0;

inline bool isMatch(Verdict verdict) {
    return verdict % 2 == 1;
}

/// A pattern, name by name.
struct PathPattern {
    struct Name {
        std::string text;
        bool spans = false;                     ///< It is "**".
        std::vector<NamePattern> alternatives;  ///< One of them has to match; else none can.
    };

    bool takesAway = false;
    std::vector<Name> names;
};

/// Path patterns as one tree over their names: those that begin alike share their beginning. A
/// path reaches the nodes down to which its names match, often one and sometimes several.
///
/// The edges that a name could take are found by hash: those of names at once, the others by their
/// literal bytes in front and at the end, once for each pair of lengths (`Shape`) that these have
/// at the node. So a name is tried only against patterns that share their literal ends with it.
/// Those without any ("*a*", "?x?") are tried one by one. At worst a name takes time in proportion
/// to its length and to the text of all edges that leave the nodes reached; each node counts once.
///
/// Immutable; any thread.
class PatternTree {
public:
    static constexpr std::uint32_t kRoot = 0;
    static constexpr std::uint32_t kNone = ~std::uint32_t{0};

    /// Children stand behind their parents.
    struct Node {
        bool spans = false;  ///< Ends in "**": all below a path that reaches it reach it too.
        std::uint32_t span = kNone;  ///< The child by "**", reached whenever this node is.
        /// Counts the nodes that a path can reach in several ways; `kNone` for the others.
        std::uint32_t mark = kNone;
        std::uint32_t firstShape = 0;
        std::uint32_t endOfShapes = 0;
        Verdict verdict = kNoVerdict;  ///< Of the paths that reach it.
        Verdict below =
            kNoVerdict;  ///< The greatest match of paths strictly below one that reaches it.
        Verdict notBelow = kNoVerdict;  ///< The greatest that takes away all those paths.
    };

    explicit PatternTree(const std::vector<PathPattern>& patterns);

    const Node& operator[](std::uint32_t node) const { return nodes_[node]; }
    std::uint32_t marks() const { return marks_; }

    /// Calls `use` with each child that the name leads to; more than once if several alternatives
    /// do.
    template <class Use>
    void forEachChild(std::uint32_t node, std::string_view name, Use use) const;

private:
    /// How many bytes of a name are known: these at its front, those at its end.
    struct Shape {
        std::size_t prefix = 0;  ///< `std::string_view::npos` for the whole name.
        std::size_t suffix = 0;
    };
    struct Edge {
        std::uint32_t hash = 0;
        std::uint32_t from = 0;
        std::uint32_t to = 0;
        NamePattern pattern;
    };
    class Builder;

    static Shape shapeOf(const NamePattern& pattern);
    static bool isSame(const Shape& a, const Shape& b);
    static bool fits(const Shape& shape, std::string_view name);
    static std::uint32_t hashOf(std::uint32_t node, const Shape& shape, std::string_view name);
    std::size_t firstEdge(std::uint32_t hash) const;

    std::vector<Node> nodes_;
    std::vector<Shape> shapes_;         ///< Of the edges that leave a node, node by node.
    std::vector<Edge> edges_;           ///< By hash.
    std::vector<std::uint32_t> slots_;  ///< A `NameIndex` of the first edges of each hash.
    std::uint32_t marks_ = 0;
};

template <class Use>
void PatternTree::forEachChild(std::uint32_t node, std::string_view name, Use use) const {
    const Node& from = nodes_[node];
    for (std::uint32_t i = from.firstShape; i < from.endOfShapes; ++i) {
        const Shape& shape = shapes_[i];
        if (!fits(shape, name)) {
            continue;
        }
        const std::uint32_t hash = hashOf(node, shape, name);
        for (std::size_t at = firstEdge(hash); at < edges_.size() && edges_[at].hash == hash;
             ++at) {
            const Edge& edge = edges_[at];
            if (edge.from == node && isSame(shapeOf(edge.pattern), shape) &&
                edge.pattern.matches(name)) {
                use(edge.to);
            }
        }
    }
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
