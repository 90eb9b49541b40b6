// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AssetFormat.h"

#include <cstdint>
#include <string>

namespace AssimpImport {

/// Throws `ImportError` when the counts or the header of a PLY or OFF file would lead a reader
/// astray: memory is taken for what is announced before the first of it is read.
void checkText(const std::string& filename, const AssetFormat& format, std::int64_t size);

}  // namespace AssimpImport
