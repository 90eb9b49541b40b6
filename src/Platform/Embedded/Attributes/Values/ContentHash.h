// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Values/Value.h"

namespace Sylvar3::internal::OvAttribute::Embedded {

/// The content hash of a value, by XXH3 with 128 bits; zero for null.
///
/// Of a data value: over kind, tuple size, number of samples and of values, the digest of the times
/// and the digest of the values; strings with their lengths. Of a group: over kind, group inherit,
/// number of children, the digest of the names with their lengths, and the children's hashes.
///
/// Groups and long values keep their hash. A loop, however deep the groups; throws
/// `std::bad_alloc`. Any thread.
OvAttributeHash contentHashOf(const Value* value);

}  // namespace Sylvar3::internal::OvAttribute::Embedded
