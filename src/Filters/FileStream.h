// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <fstream>
#include <string>

namespace SYLVAR {

/// Whether the file system knows the path, whatever stands there.
bool fileExists(const std::string& filename);

/// The file as plain bytes. Throws `std::runtime_error`, "Error opening file: <name>".
std::ifstream openFile(const std::string& filename);

/// The bytes of a `std::ifstream`, for the readers of the platform: one read, and the count that
/// it delivered. A short count is the file's end.
long readFromFile(void* stream, void* buffer, long size);

}  // namespace SYLVAR
