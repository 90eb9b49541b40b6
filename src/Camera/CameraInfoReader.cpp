// SPDX-License-Identifier: Apache-2.0
#include "Camera/CameraInfoReader.h"

#include <SylvarPlatform/XFormUtil.h>

#include "Camera/GlobalMatrix.h"
#include "Camera/LensFields.h"
#include "Camera/TimeSampledFloatBuilder.h"

namespace SYLVAR {
namespace {

namespace OvAttribute = Sylvar3::internal::OvAttribute;
using OvAttribute::DoubleAttribute;
using Samples = OvAttribute::SampleAccessor<DoubleAttribute>;
using Sylvar3::internal::OvSylvarServices::OvXFormUtil;

constexpr long kMatrixValues = 16;

/// False when a value is missing.
bool readLens(CameraInfo& info, const GroupAttribute& geometry) {
    for (const auto& [name, field] : lensFields<CameraInfo>()) {
        const auto value = geometry.getChild<DoubleAttribute>(name);
        if (!value) {
            return false;
        }
        info.*field = static_cast<float>(OvAttribute::getDoubleValue(value, 0.0, false));
    }
    return true;
}

FloatAttribute floatSamplesOf(const DoubleAttribute& matrices) {
    TimeSampledFloatBuilder builder(kMatrixValues);
    const Samples all(matrices);
    for (std::int64_t i = 0; i < all.getNumberOfTimeSamples(); ++i) {
        const float time = all.getSampleTime(i);
        const Samples nearest(matrices, time);
        builder.set(time, std::vector<float>(nearest.begin(), nearest.end()));
    }
    return builder.build();
}

void readTransform(CameraInfo& info, GeometryProducer& camera) {
    const DoubleAttribute matrices =
        OvXFormUtil::CalcTransformMatrixAtExistingTimes(camera.getGlobalXFormGroup()).attribute;
    if (matrices) {
        info.xform = matrixNearTimeZero(matrices);
        info.xformAttr = floatSamplesOf(matrices);
    }
}

void readOrthographicWidth(CameraInfo& info, const GroupAttribute& geometry) {
    const auto width = geometry.getChild<DoubleAttribute>("orthographicWidth");
    if (width) {
        info.orthographicWidth = static_cast<float>(OvAttribute::getDoubleValue(width, 0.0, false));
    }
}

bool isOrthographic(GeometryProducer& camera) {
    const auto projection =
        OvAttribute::castAttribute<StringAttribute>(camera.getAttribute("geometry.projection"));
    return OvAttribute::getStringValue(projection, "", false) == "orthographic";
}

}  // namespace

std::shared_ptr<CameraInfo> readCameraInfo(GeometryProducer& root, const std::string& cameraPath) {
    const GeometryProducerPtr camera = root.getProducerByPath(cameraPath, false);
    if (!camera) {
        return {};
    }
    const auto geometry =
        OvAttribute::castAttribute<GroupAttribute>(camera->getAttribute("geometry"));
    auto info = std::make_shared<CameraInfo>();
    if (!readLens(*info, geometry)) {
        return {};
    }
    readTransform(*info, *camera);
    info->orthographic = isOrthographic(*camera);
    readOrthographicWidth(*info, geometry);
    return info;
}

}  // namespace SYLVAR
