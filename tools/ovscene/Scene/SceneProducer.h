// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/GeometryProducer.h>

#include "Scene/SceneFile.h"
#include "Scene/SceneWalk.h"

namespace ovscene {

/// The location where the walk is, as the library's own functions take it: a producer that knows
/// all locations above it, up to the top of the file's scene.
SYLVAR::GeometryProducerPtr producerOf(const SceneFile& file, const SceneWalk& walk);

}  // namespace ovscene
