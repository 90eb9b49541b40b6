// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/CameraInfo.h>

#include "Camera/LensFields.h"

namespace SYLVAR {

using Sylvar3::internal::OvAttribute::DoubleAttribute;
using Sylvar3::internal::OvAttribute::getStringValue;

CameraGeometry GetInterpolatedCameraGeometryFromAttr(GroupAttribute geometry, float time) {
    CameraGeometry lens;
    for (const auto& [name, field] : lensFields<CameraGeometry>()) {
        const auto value = geometry.getChild<DoubleAttribute>(name);
        if (value) {
            double atTime = 0;
            value.fillInterpSample(&atTime, 1, time, 0.0, false);
            lens.*field = static_cast<float>(atTime);
        }
    }
    const auto projection = geometry.getChild<StringAttribute>("projection");
    lens.orthographic = getStringValue(projection, "", false) == "orthographic";
    return lens;
}

}  // namespace SYLVAR
