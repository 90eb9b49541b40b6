// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/GeometryProducer.h>

#include "Scene/SceneFile.h"

#include <string>

/// Scenes as the library's producers, for what asks for these: cameras, and places in the picture.
namespace ovscene {

/// The top location, /root. Never null; throws as `topLocation` does.
SYLVAR::GeometryProducerPtr topProducer(const SceneFile& file);

/// The location at a path that `findLocation` knows, with all locations above it, up to the top.
/// Throws NotFound when it is not there after all.
SYLVAR::GeometryProducerPtr producerAt(const SceneFile& file,
                                       const SYLVAR::GeometryProducerPtr& top,
                                       const std::string& path);

}  // namespace ovscene
