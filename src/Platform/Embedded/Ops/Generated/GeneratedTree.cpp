// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Generated/GeneratedTree.h"

#include <algorithm>
#include <charconv>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace {

constexpr std::size_t kLongestName = 21;

}  // namespace

std::uint64_t GeneratedTree::firstChild(std::uint64_t number) const {
    std::uint64_t first = 0;
    if (__builtin_mul_overflow(number, breadth_, &first)) {
        return kNoLimit;
    }
    return std::min(first, kNoLimit - 1) + 1;
}

std::uint64_t GeneratedTree::childCount(const Place& place) const {
    const std::uint64_t first = firstChild(place.number);
    return place.depth >= depth_ || first >= count_ ? 0 : std::min(breadth_, count_ - first);
}

std::optional<GeneratedTree::Place> GeneratedTree::find(std::string_view path) const {
    const std::string_view top = kTopName;
    if (path.substr(1, top.size()) != top) {
        return std::nullopt;
    }
    path.remove_prefix(1 + top.size());
    Place place;
    while (!path.empty()) {
        if (path.size() < 3 || path[0] != '/' || path[1] != 'c') {
            return std::nullopt;
        }
        const auto [end, error] =
            std::from_chars(path.data() + 2, path.data() + path.size(), place.sibling);
        if (error != std::errc() || place.sibling >= childCount(place)) {
            return std::nullopt;
        }
        path.remove_prefix(static_cast<std::size_t>(end - path.data()));
        place.number = firstChild(place.number) + place.sibling;
        ++place.depth;
    }
    return place;
}

GeneratedTree::Names::Names(std::uint64_t count) {
    names_.reserve(count);
    text_.resize(count * kLongestName);
    char* at = text_.data();
    for (std::uint64_t i = 0; i < count; ++i) {
        *at = 'c';
        char* const end = std::to_chars(at + 1, at + kLongestName, i).ptr;
        names_.emplace_back(at, static_cast<std::size_t>(end - at));
        at = end;
    }
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
