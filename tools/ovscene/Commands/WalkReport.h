// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Print/Output.h"
#include "Scene/ParallelWalk.h"
#include "Scene/RuntimeStatistics.h"

#include <optional>
#include <string>
#include <vector>

namespace ovscene {

/// What `walk` tells.
struct WalkReport {
    std::string file;
    std::string content;
    std::string top;
    std::vector<WalkResult> walks;  ///< At least one.
    bool hasStatistics = false;     ///< Whether they were asked for.
    std::optional<RuntimeStatistics> statistics;
};

/// For people, and as one JSON document.
void printWalk(const WalkReport& report, Output& output);
void printWalkJson(const WalkReport& report, Output& output);

}  // namespace ovscene
