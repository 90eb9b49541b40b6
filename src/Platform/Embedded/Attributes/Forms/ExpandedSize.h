// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Values/Value.h"

#include <cstdint>

namespace Sylvar3::internal::OvAttribute::Embedded {

/// How many attributes are written for a value when a shared one is written each time it occurs:
/// the value itself and all below it, null ones too; `most` + 1 when there are more than `most`.
///
/// A loop, however deep the groups, and quick however often a group is shared. Throws
/// `std::bad_alloc`. Any thread.
std::int64_t expandedSizeOf(const Value* value, std::int64_t most);

}  // namespace Sylvar3::internal::OvAttribute::Embedded
