// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

#include "AssetFormat.h"

namespace AssimpImport {

/// Throws `ImportError` when the header of a PLY or OFF file of `size` bytes would lead a reader
/// astray: it announces more elements than the file can hold, for which memory would be taken
/// before the first of them is read, or it is a PLY header that does not follow the format, in
/// which a reader may search without end.
void checkHeader(const std::string& filename, const AssetFormat& format, std::int64_t size);

}  // namespace AssimpImport
