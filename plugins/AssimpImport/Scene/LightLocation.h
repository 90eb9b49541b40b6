// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AssetFormat.h"
#include "Scene/LocationMaker.h"

#include <assimp/light.h>

namespace AssimpImport {

/// A location of the type "light", which shines along its -z.
SuiteHandle makeLightLocation(const LocationMaker& locations,
                              const aiLight& light,
                              const AssetFormat& format);

}  // namespace AssimpImport
