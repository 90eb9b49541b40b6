// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

#include "AssetFormat.h"

namespace AssimpImport {

/// Throws `ImportError` when the header of a PLY or OFF file announces more elements than a file of
/// `size` bytes can hold. Memory for them would be taken before the first of them is read.
void checkDeclaredCounts(const std::string& filename, const AssetFormat& format, std::int64_t size);

}  // namespace AssimpImport
