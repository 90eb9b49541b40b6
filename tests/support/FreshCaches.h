// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/CameraInfo.h>
#include <OvSylvarProducers/FlattenedMaterial.h>

namespace ovtest {

/// Forgets what the process remembers of scenes, so that a test sees its own alone.
inline void emptySceneCaches() {
    SYLVAR::ClearCameraInfoCache();
    SYLVAR::EmptyFlattenedMaterialCache();
}

}  // namespace ovtest
