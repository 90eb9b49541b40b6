// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

namespace AssimpImport {

/// Throws `ImportError` when `header`, the beginning of a PLY file of `size` bytes, does not follow
/// the format (a reader may search it without end) or announces more elements than the file can
/// hold.
void checkPlyHeader(const std::string& header, std::int64_t size);

}  // namespace AssimpImport
