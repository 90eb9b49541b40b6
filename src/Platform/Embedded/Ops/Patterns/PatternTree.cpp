// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Patterns/PatternTree.h"

#include "Platform/Embedded/Attributes/Values/Hashing.h"
#include "Platform/Embedded/Attributes/Values/NameIndex.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace NameIndex = OvAttribute::Embedded::NameIndex;
using OvAttribute::Embedded::nameHashOf;

PatternTree::Shape PatternTree::shapeOf(const NamePattern& pattern) {
    if (pattern.isLiteral()) {
        return {std::string_view::npos, 0};
    }
    return {pattern.prefix(), pattern.suffix()};
}

bool PatternTree::isSame(const Shape& a, const Shape& b) {
    return a.prefix == b.prefix && a.suffix == b.suffix;
}

bool PatternTree::fits(const Shape& shape, std::string_view name) {
    return shape.prefix == std::string_view::npos || shape.prefix + shape.suffix <= name.size();
}

std::uint32_t PatternTree::hashOf(std::uint32_t node, const Shape& shape, std::string_view name) {
    constexpr std::uint32_t kNodes = 0x9E3779B1;
    constexpr std::uint32_t kSuffixes = 0x85EBCA77;
    std::uint32_t hash = node * kNodes;
    if (shape.prefix > 0) {
        hash += nameHashOf(name.substr(0, shape.prefix));
    }
    if (shape.suffix > 0) {
        hash += nameHashOf(name.substr(name.size() - shape.suffix)) * kSuffixes;
    }
    return hash;
}

std::size_t PatternTree::firstEdge(std::uint32_t hash) const {
    const std::int64_t found =
        NameIndex::find(slots_.data(), slots_.size(), hash, [&](std::uint32_t at) {
            return edges_[at].hash == hash;
        });
    return found < 0 ? edges_.size() : static_cast<std::size_t>(found);
}

class PatternTree::Builder {
public:
    explicit Builder(PatternTree& tree) : tree_(tree) { addNode(kRoot); }

    void add(const PathPattern& pattern, std::size_t place);
    void finish();

private:
    std::uint32_t addNode(std::uint32_t parent);
    std::uint32_t childOf(std::uint32_t parent, const PathPattern::Name& name);
    void addEdges(std::uint32_t from, std::uint32_t to, const std::vector<NamePattern>& patterns);
    void addMark(Node& node) const { node.mark = tree_.marks_++; }
    void indexEdges() const;
    void listShapes() const;
    void lookBelow() const;

    PatternTree& tree_;
    std::vector<std::uint32_t> parents_;
    std::vector<bool> matchesEveryName_;  ///< The name by which a path comes from the parent.
    std::map<std::pair<std::uint32_t, std::string>, std::uint32_t> children_;
};

PatternTree::PatternTree(const std::vector<PathPattern>& patterns) {
    Builder builder(*this);
    for (std::size_t place = 0; place < patterns.size(); ++place) {
        builder.add(patterns[place], place);
    }
    builder.finish();
}

void PatternTree::Builder::add(const PathPattern& pattern, std::size_t place) {
    std::uint32_t node = kRoot;
    for (const PathPattern::Name& name : pattern.names) {
        if (!name.spans && name.alternatives.empty()) {
            return;
        }
        node = childOf(node, name);
    }
    const std::size_t matches = pattern.takesAway ? 0 : 1;
    tree_.nodes_[node].verdict = static_cast<Verdict>((place + 1) * 2 + matches);
}

std::uint32_t PatternTree::Builder::addNode(std::uint32_t parent) {
    tree_.nodes_.emplace_back();
    parents_.push_back(parent);
    matchesEveryName_.push_back(false);
    return static_cast<std::uint32_t>(tree_.nodes_.size() - 1);
}

std::uint32_t PatternTree::Builder::childOf(std::uint32_t parent, const PathPattern::Name& name) {
    if (name.spans && tree_.nodes_[parent].spans) {
        return parent;
    }
    const auto [known, isNew] = children_.try_emplace({parent, name.text}, kNone);
    if (!isNew) {
        return known->second;
    }
    const std::uint32_t child = known->second = addNode(parent);
    if (name.spans) {
        tree_.nodes_[child].spans = true;
        tree_.nodes_[parent].span = child;
        addMark(tree_.nodes_[child]);
    } else {
        addEdges(parent, child, name.alternatives);
    }
    return child;
}

void PatternTree::Builder::addEdges(std::uint32_t from,
                                    std::uint32_t to,
                                    const std::vector<NamePattern>& patterns) {
    for (const NamePattern& pattern : patterns) {
        tree_.edges_.push_back({hashOf(from, shapeOf(pattern), pattern.text()), from, to, pattern});
        matchesEveryName_[to] = matchesEveryName_[to] || pattern.matchesEveryName();
    }
    if (patterns.size() > 1) {
        addMark(tree_.nodes_[to]);
    }
}

void PatternTree::Builder::finish() {
    listShapes();
    indexEdges();
    lookBelow();
}

void PatternTree::Builder::listShapes() const {
    std::vector<std::tuple<std::uint32_t, std::size_t, std::size_t>> all;
    all.reserve(tree_.edges_.size());
    for (const Edge& edge : tree_.edges_) {
        const Shape shape = shapeOf(edge.pattern);
        all.emplace_back(edge.from, shape.prefix, shape.suffix);
    }
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end()), all.end());
    for (const auto& [node, prefix, suffix] : all) {
        Node& from = tree_.nodes_[node];
        const auto place = static_cast<std::uint32_t>(tree_.shapes_.size());
        from.firstShape = from.endOfShapes == 0 ? place : from.firstShape;
        from.endOfShapes = place + 1;
        tree_.shapes_.push_back({prefix, suffix});
    }
}

void PatternTree::Builder::indexEdges() const {
    std::vector<Edge>& edges = tree_.edges_;
    std::sort(
        edges.begin(), edges.end(), [](const Edge& a, const Edge& b) { return a.hash < b.hash; });
    edges.shrink_to_fit();
    // A short list, too, gets a table.
    const std::size_t count = std::max(edges.size(), NameIndex::kLongestPlainList + 1);
    tree_.slots_.resize(NameIndex::slotsFor(count));
    for (std::size_t at = 0; at < edges.size(); ++at) {
        if (at == 0 || edges[at].hash != edges[at - 1].hash) {
            NameIndex::insert(tree_.slots_.data(),
                              tree_.slots_.size(),
                              edges[at].hash,
                              static_cast<std::uint32_t>(at));
        }
    }
}

void PatternTree::Builder::lookBelow() const {
    const auto match = [](const Node& node) { return isMatch(node.verdict) ? node.verdict : 0; };
    const auto takenAway = [](const Node& node) {
        return isMatch(node.verdict) ? 0 : node.verdict;
    };
    std::vector<Node>& nodes = tree_.nodes_;
    for (std::size_t at = nodes.size() - 1; at > kRoot; --at) {
        Node& node = nodes[at];
        Node& parent = nodes[parents_[at]];
        if (node.spans) {
            node.below = std::max(node.below, match(node));
            node.notBelow = std::max(node.notBelow, takenAway(node));
        }
        if (matchesEveryName_[at]) {
            const Verdict spanAndName = parent.spans ? takenAway(node) : 0;
            const Verdict nameAndSpan = node.span == kNone ? 0 : takenAway(nodes[node.span]);
            parent.notBelow = std::max({parent.notBelow, spanAndName, nameAndSpan});
        }
        parent.below = std::max({parent.below, node.below, match(node)});
    }
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
