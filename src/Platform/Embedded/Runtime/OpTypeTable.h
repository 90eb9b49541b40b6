// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/Op.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// How many op types a process can have: statistics have one place for each.
constexpr std::size_t kMostOpTypes = 64;

/// The op types of the process. Any thread.
class OpTypeTable {
public:
    /// The place of ops that are nothing: they have no type, or one that nobody knows.
    static constexpr std::uint32_t kNoType = 0;

    static const OpTypeTable& instance();

    /// The type of that name and its place; null and `kNoType` when there is none.
    std::pair<const OpType*, std::uint32_t> find(std::string_view name) const;

    /// Places are below this.
    std::uint32_t size() const { return size_; }

    /// Null for `kNoType`.
    const OpType* operator[](std::uint32_t place) const { return types_[place]; }

    OpTypeTable();

private:
    void add(const OpType& type);

    std::array<const OpType*, kMostOpTypes> types_{};
    std::uint32_t size_ = 1;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
