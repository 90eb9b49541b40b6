// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// Which locations a generated scene has: a complete tree with a limit on its depth and on its
/// size. Locations are numbered level by level, the top one being 0; a child's name is "c" and its
/// place among its siblings. Nothing is stored. Immutable; any thread.
class GeneratedTree {
public:
    static constexpr const char* kTopName = "root";
    static constexpr std::uint64_t kNoLimit = std::numeric_limits<std::uint64_t>::max() / 2;

    GeneratedTree(std::int32_t breadth, std::int32_t depth, std::uint64_t count)
        : breadth_(static_cast<std::uint64_t>(breadth)), depth_(depth), count_(count) {}

    struct Place {
        std::uint64_t number = 0;
        std::uint64_t sibling = 0;  ///< The place among its siblings.
        std::int32_t depth = 0;
    };

    /// Where a path leads; nothing when the tree has no such location.
    std::optional<Place> find(std::string_view path) const;

    std::uint64_t childCount(const Place& place) const;

    /// The names of the first children of any location.
    class Names {
    public:
        explicit Names(std::uint64_t count);
        const std::vector<std::string_view>& all() const { return names_; }

    private:
        std::string text_;
        std::vector<std::string_view> names_;
    };

private:
    std::uint64_t firstChild(std::uint64_t number) const;

    std::uint64_t breadth_;
    std::int32_t depth_;
    std::uint64_t count_;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
