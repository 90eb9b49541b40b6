// SPDX-License-Identifier: Apache-2.0
#include "ImportRequest.h"

#include "ImportError.h"

#include <cmath>

namespace AssimpImport {

void checkOptions(const OvAssetImportOptions& options) {
    if (options.upAxis != 0 && (options.upAxis < 'x' || options.upAxis > 'z')) {
        throw ImportError("the up axis must be x, y or z");
    }
    if (!std::isfinite(options.unitScale) || options.unitScale < 0.0) {
        throw ImportError("the unit scale must be a positive number");
    }
    if (options.maxFileBytes < 0 || options.maxLocations < 0) {
        throw ImportError("a limit must not be negative");
    }
}

}  // namespace AssimpImport
