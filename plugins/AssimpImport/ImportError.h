// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <stdexcept>

namespace AssimpImport {

/// Why an asset is not imported, as the end of a sentence without its full stop.
class ImportError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace AssimpImport
