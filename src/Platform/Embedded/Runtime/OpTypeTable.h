// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/Op.h"
#include "Platform/Support/Mutex.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// How many op types a process can have: statistics have one place for each.
constexpr std::size_t kMostOpTypes = 64;

/// The op types of the process: the platform's own, those that were added, and those of plug-ins,
/// which are added when an op tree names them first. Any thread.
class OpTypeTable {
public:
    /// The place of ops that are nothing: they have no type, or one that nobody knows.
    static constexpr std::uint32_t kNoType = 0;

    static OpTypeTable& instance();

    OpTypeTable();
    OpTypeTable(const OpTypeTable&) = delete;
    OpTypeTable& operator=(const OpTypeTable&) = delete;

    /// Adds a type, which must live as long as the process. Empty on success, otherwise the reason:
    /// the name is taken, or there are `kMostOpTypes` already. Ops that were committed before are
    /// what they were.
    std::string add(const OpType& type) OV_EXCLUDES(mutex_);

    using Found = std::pair<const OpType*, std::uint32_t>;

    /// The type of that name and its place; null and `kNoType` when there is none.
    Found find(std::string_view name) const;

    /// The same, and a plug-in's type is added. When there is none, `fault` is the reason: no type
    /// has this name, with the one that was probably meant, or it cannot be used.
    Found findOrAdd(const std::string& name, std::string& fault) OV_EXCLUDES(mutex_);

    /// All types, those that plug-ins would add behind the others.
    std::vector<const OpType*> all() const;

    /// Places are below this.
    std::uint32_t size() const { return size_.load(std::memory_order_acquire); }

    /// Null for `kNoType`.
    const OpType* operator[](std::uint32_t place) const { return types_[place]; }

private:
    std::string nearestTo(std::string_view name) const;

    Support::Mutex mutex_;  ///< For who adds.
    std::array<const OpType*, kMostOpTypes> types_{};
    std::atomic<std::uint32_t> size_{1};
};

/// The platform's own op types, by name, each for the life of the process. They are defined with
/// the ops, which stand above this.
std::vector<const OpType*> builtInOpTypes();

/// @name The op types of plug-ins
/// They are defined with the plug-in manager, which stands above this. Code of plug-ins may run.
/// @{

/// The type that a plug-in of this name gives, for the life of the process. Null when there is no
/// such plug-in; null and a reason when it cannot be used.
const OpType* findForeignOpType(const std::string& name, std::string& fault);

/// The names of all plug-ins that give one, none of which is asked.
std::vector<std::string> foreignOpTypeNames();

/// @}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
