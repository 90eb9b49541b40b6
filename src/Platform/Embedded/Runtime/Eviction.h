// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/InternedOp.h"

#include <memory>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// @name What ops have cooked, and is to be cooked anew
/// The ops are given with what they read from in front (`reachableOps`), and dropped in that order,
/// so that nobody can cook something new from something old in between. A cook under way is
/// delivered to those who wait for it, and not kept. Any thread.
/// @{

/// Drops a location and those below it, and what was read at other paths to make it.
void dropLocation(const std::vector<std::shared_ptr<InternedOp>>& ops, std::string_view path);

/// Drops everything.
void dropAll(const std::vector<std::shared_ptr<InternedOp>>& ops);

/// Where an op has read something from outside that is another now, drops all that any op of the
/// process has cooked of it.
void dropWhatChanged(const std::vector<std::shared_ptr<InternedOp>>& ops);

/// @}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
