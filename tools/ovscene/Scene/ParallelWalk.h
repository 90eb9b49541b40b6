// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Scene/SceneLocation.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace ovscene {

/// What one thread met on a walk.
struct ThreadShare {
    std::int64_t locations = 0;
    std::int64_t attributes = 0;  ///< At the locations; what is nested in them is not counted.
    std::int64_t errors = 0;
    std::string error;  ///< Of several the first by the alphabet, since their order is not fixed.
};

/// A walk over a whole scene.
struct WalkResult {
    std::vector<ThreadShare> shares;  ///< One for each thread.
    double seconds = 0;

    ThreadShare sum() const;
};

/// Visits all locations from `top` down on that many threads of its own, and reads the type and the
/// attributes of each. Throws a `CommandError` that names the file for more locations than
/// `mostLocations`, and whatever a step on one of the threads threw: then the others end too.
WalkResult walkInParallel(const SceneLocationPtr& top,
                          std::size_t threads,
                          std::int64_t mostLocations,
                          const std::string& filename);

}  // namespace ovscene
