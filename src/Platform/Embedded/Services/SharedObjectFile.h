// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace Sylvar3::internal::Embedded {

/// Whether a shared object is shorter than its own headers say, as one that is still being copied
/// is. The loader would map what is not there, and the process would end at the first access.
/// False for all else, which the loader tells by itself.
bool isCutShort(const std::string& filename);

}  // namespace Sylvar3::internal::Embedded
