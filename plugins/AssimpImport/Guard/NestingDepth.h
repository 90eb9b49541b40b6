// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AssetFormat.h"

#include <cstdint>
#include <string>

namespace AssimpImport {

/// How deep the parts of a file can lie inside each other: never less than the depth to which
/// Assimp recurses when it reads the file. Reads the file once, in constant memory. Throws
/// `ImportError` beyond what any file of its kind needs.
std::int64_t nestingDepth(const std::string& filename, Nesting nesting);

}  // namespace AssimpImport
