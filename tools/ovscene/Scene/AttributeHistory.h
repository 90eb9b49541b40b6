// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Scene/SceneFile.h"
#include "Scene/SceneLocation.h"

#include <cstdint>
#include <string>
#include <vector>

namespace ovscene {

/// An op that an attribute comes from, or that handed it on. Names hold any bytes.
struct HistoryStep {
    bool gives = false;
    std::string name;  ///< As its op tree calls it; can be empty.
    std::string type;
    std::int64_t number = 0;  ///< Among the ops of its file, from 1 on; 0 when it is none of them.
    std::int64_t count = 0;
    std::string file;
    std::string path;  ///< Of its location that has the attribute.
};

/// Where an attribute comes from.
struct AttributeHistory {
    bool hasAttribute = false;
    bool isDropped = false;  ///< It is not there, since the first op did not hand it on.

    /// The op that gave the attribute, then those that handed it on. Without the attribute the op
    /// that dropped it is the first one or, when none did, the one that gave the location. At least
    /// one.
    std::vector<HistoryStep> steps;
};

/// Asks the runtime that cooks the op tree of `file`. Throws Unexpected, with the runtime's reason,
/// when it does not tell.
AttributeHistory attributeHistory(const SceneFile& file,
                                  const SceneLocation& location,
                                  const std::string& path,
                                  const std::string& name);

}  // namespace ovscene
