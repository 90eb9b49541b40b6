// SPDX-License-Identifier: Apache-2.0
#include "Scene/LocationBudget.h"

#include "ImportError.h"

#include <string>

namespace AssimpImport {

void LocationBudget::spend(std::size_t count) {
    spent_ += static_cast<std::int64_t>(count);
    if (limit_ > 0 && spent_ > limit_) {
        throw ImportError("it makes more locations than the limit of " + std::to_string(limit_));
    }
}

}  // namespace AssimpImport
