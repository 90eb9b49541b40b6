// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Patterns/PatternWalk.h"

#include <algorithm>
#include <cstddef>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace {

constexpr std::uint32_t kBits = 64;

}  // namespace

PatternWalk::PatternWalk(const PatternTree& tree)
    : tree_(tree), marked_((tree.marks() + kBits - 1) / kBits) {
    reach(PatternTree::kRoot);
    forgetMarks();
}

void PatternWalk::enter(std::string_view name) {
    const std::size_t count = reached_.size();
    for (std::size_t i = 0; i < count; ++i) {
        reachFrom(reached_[i], name);
    }
    reached_.erase(reached_.begin(), reached_.begin() + static_cast<std::ptrdiff_t>(count));
    forgetMarks();
}

void PatternWalk::enterFrom(const PatternWalk& above, std::string_view name) {
    reached_.clear();
    for (const std::uint32_t node : above.reached_) {
        reachFrom(node, name);
    }
    forgetMarks();
}

Verdict PatternWalk::verdict() const {
    Verdict last = kNoVerdict;
    for (const std::uint32_t node : reached_) {
        last = std::max(last, tree_[node].verdict);
    }
    return last;
}

bool PatternWalk::canMatchBelow() const {
    Verdict below = kNoVerdict;
    Verdict notBelow = kNoVerdict;
    for (const std::uint32_t node : reached_) {
        below = std::max(below, tree_[node].below);
        notBelow = std::max(notBelow, tree_[node].notBelow);
    }
    return below > notBelow;
}

void PatternWalk::reachFrom(std::uint32_t node, std::string_view name) {
    if (tree_[node].spans) {
        reach(node);
    }
    tree_.forEachChild(node, name, [&](std::uint32_t child) { reach(child); });
}

void PatternWalk::reach(std::uint32_t node) {
    while (node != PatternTree::kNone && isNews(tree_[node].mark)) {
        reached_.push_back(node);
        node = tree_[node].span;
    }
}

bool PatternWalk::isNews(std::uint32_t mark) {
    if (mark == PatternTree::kNone) {
        return true;
    }
    std::uint64_t& bits = marked_[mark / kBits];
    const std::uint64_t bit = std::uint64_t{1} << (mark % kBits);
    const bool isNew = (bits & bit) == 0;
    bits |= bit;
    return isNew;
}

void PatternWalk::forgetMarks() {
    for (const std::uint32_t node : reached_) {
        const std::uint32_t mark = tree_[node].mark;
        if (mark != PatternTree::kNone) {
            marked_[mark / kBits] = 0;
        }
    }
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
