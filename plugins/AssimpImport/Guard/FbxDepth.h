// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <istream>

namespace AssimpImport {

/// Whether a file is of the binary form; leaves the stream at its beginning.
bool isBinaryFbx(std::istream& file);

/// How deep the records of a binary file nest. What makes no sense ends the walk: a reader stops
/// there as well.
std::int64_t binaryFbxDepth(std::istream& file);

}  // namespace AssimpImport
