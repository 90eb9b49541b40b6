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

/// The path of that location as the producers' own steps find it from the top: those of a static
/// scene take a dot for a step into a group, so a name with one is encoded. Throws as above.
std::string steppedPath(const SceneFile& file,
                        const SYLVAR::GeometryProducerPtr& top,
                        const std::string& path);

}  // namespace ovscene
