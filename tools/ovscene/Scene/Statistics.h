// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Hash.h>

#include "Scene/AttributeWalk.h"
#include "Scene/SceneErrors.h"
#include "Scene/SceneFile.h"
#include "Scene/SceneWalk.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <unordered_set>
#include <vector>

namespace ovscene {

/// An attribute that holds many bytes, and where it is.
struct LargeAttribute {
    std::string path;  ///< Empty when the file holds no scene.
    std::string name;
    std::int64_t bytes = 0;
};

/// What a file holds, counted: the scene that it makes, or its attribute. Values, their bytes and
/// their samples are counted wherever they occur; `distinct` counts equal values once.
struct Statistics {
    bool hasLocations = false;
    std::int64_t locations = 0;
    std::map<std::string, std::int64_t> types;
    SceneErrors errors;
    std::vector<std::int64_t> depths;  ///< The number of locations of each depth, the top first.

    std::int64_t attributes = 0;  ///< Of all kinds, nested ones too.
    std::map<std::string, std::int64_t> kinds;
    std::int64_t valueBytes = 0;
    std::int64_t samples = 0;
    std::int64_t animated = 0;  ///< Attributes of more than one sample.
    std::int64_t distinctValues = 0;
    std::int64_t distinctBytes = 0;
    std::int64_t shapes = 0;  ///< Different lists of attribute names that locations have.
    std::vector<LargeAttribute> largest;  ///< Of equal values the first alone.
    double walkSeconds = 0;
};

/// Visits everything in the file.
Statistics collectStatistics(const SceneFile& file);

}  // namespace ovscene
