// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Scene/SceneLocation.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace ovscene {

/// What was done for the ops of one type, by all runtimes of the process.
struct OpTypeStatistics {
    std::string name;
    std::int64_t cooks = 0;
    std::int64_t hits = 0;
    std::int64_t evictions = 0;
    double seconds = 0;
};

/// What the runtime behind a scene tells of its work.
struct RuntimeStatistics {
    std::vector<OpTypeStatistics> opTypes;
    std::int64_t entries = 0;  ///< Locations that are kept, absent ones included.
    std::int64_t bytes = 0;
    std::int64_t pinnedBytes = 0;
};

/// Asks the runtime that cooks the location; empty for a static scene, and when the runtime has no
/// answer or one that can't be read.
std::optional<RuntimeStatistics> runtimeStatistics(const SceneLocation& location);

}  // namespace ovscene
