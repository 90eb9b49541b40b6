// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/Cursor.h"

#include "Platform/Embedded/Runtime/InternedOp.h"
#include "Platform/Embedded/Runtime/Location.h"
#include "Platform/Embedded/Runtime/StorePage.h"

#include <algorithm>
#include <cstring>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace {

/// How many bytes two texts have in common at their front.
std::size_t commonLength(std::string_view a, std::string_view b) {
    const std::size_t most = std::min(a.size(), b.size());
    std::size_t at = 0;
    for (; at + 8 <= most; at += 8) {
        std::uint64_t left = 0;
        std::uint64_t right = 0;
        std::memcpy(&left, a.data() + at, 8);
        std::memcpy(&right, b.data() + at, 8);
        if (left != right) {
            return at + static_cast<std::size_t>(__builtin_ctzll(left ^ right)) / 8;
        }
    }
    while (at < most && a[at] == b[at]) {
        ++at;
    }
    return at;
}

/// Asks for the memory of the siblings behind a location, whose turn it is next in most walks: for
/// that of a node first, at the next step for the group that it points to, and at the next for the
/// attributes, so that nothing is waited for. Only who comes from the sibling before finds the
/// first parts there.
void fetchSiblings(const Node& parent, std::uint32_t place, bool comesFromSibling) {
    const auto nodeAt = [&](std::uint32_t ahead) {
        return place + ahead < parent.names->count
                   ? SlotValue::nodeOf(parent.slots[place + ahead].load(std::memory_order_acquire))
                   : nullptr;
    };
    if (const Node* const third = nodeAt(3)) {
        __builtin_prefetch(third);
        __builtin_prefetch(reinterpret_cast<const char*>(third) + 63);
    }
    if (!comesFromSibling) {
        return;
    }
    if (const Node* const second = nodeAt(2)) {
        __builtin_prefetch(second->location);
        __builtin_prefetch(reinterpret_cast<const char*>(second->location) + 55);
    }
    if (const Node* const first = nodeAt(1)) {
        __builtin_prefetch((*first->location)[Location::kAttributes]);
    }
}

}  // namespace

Cursor::Place Cursor::walk(InternedOp& op, std::uint64_t age, std::string_view path) {
    if (age != age_) {
        steps_.clear();
        path_.clear();
        age_ = age;
    }
    if (steps_.empty()) {
        const std::uintptr_t value = op.top.load(std::memory_order_acquire);
        Node* const top = SlotValue::nodeOf(value);
        if (!top) {
            return {&op.top, value, nullptr, nullptr, 0};
        }
        steps_.push_back({top, 0, 0});
    }
    std::uint32_t hint = goBack(path);
    while (steps_.back().pathLength < path.size()) {
        Node* const parent = steps_.back().node;
        const std::size_t begin = steps_.back().pathLength + 1;
        const std::size_t end = std::min(path.find('/', begin), path.size());
        const std::int64_t place = parent->names->find(path.substr(begin, end - begin), hint);
        if (place < 0) {
            return {};
        }
        Slot& slot = parent->slots[place];
        const std::uintptr_t value = slot.load(std::memory_order_acquire);
        Node* const node = SlotValue::nodeOf(value);
        if (!node) {
            return {&slot, value, nullptr, parent, end};
        }
        path_.replace(begin - 1, std::string::npos, path.substr(begin - 1, end - begin + 1));
        steps_.push_back(
            {node, static_cast<std::uint32_t>(end), static_cast<std::uint32_t>(place)});
        if (end == path.size()) {
            fetchSiblings(*parent, static_cast<std::uint32_t>(place), hint == place && hint != 0);
        }
        hint = 0;
    }
    return {nullptr, 0, steps_.back().node, nullptr, path.size()};
}

std::uint32_t Cursor::goBack(std::string_view path) {
    const std::size_t common = commonLength(path_, path);
    std::uint32_t hint = 0;
    while (true) {
        const Step& last = steps_.back();
        if (last.pathLength <= common &&
            (last.pathLength == path.size() || path[last.pathLength] == '/')) {
            return hint;
        }
        hint = last.place + 1;
        steps_.pop_back();
    }
}

void Cursor::touch() const {
    for (const Step& step : steps_) {
        step.node->page->touch();
    }
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
