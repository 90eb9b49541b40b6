// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>
#include <memory>

namespace Sylvar3::internal::Support {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

/// An open file of the C library, closed at the end of its scope.
using FileHandle = std::unique_ptr<std::FILE, CloseFile>;

}  // namespace Sylvar3::internal::Support
