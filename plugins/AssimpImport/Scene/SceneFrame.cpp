// SPDX-License-Identifier: Apache-2.0
#include "Scene/SceneFrame.h"

#include <cmath>

namespace AssimpImport {
namespace {

constexpr double kMetresPerCentimetre = 0.01;

bool isFbx(const AssetFormat& format) {
    return format.nesting == Nesting::Fbx;
}

char axisOfFile(const aiScene& scene, const AssetFormat& format) {
    std::int32_t axis = 1;
    if (isFbx(format) && scene.mMetaData) {
        scene.mMetaData->Get("UpAxis", axis);
    }
    return axis == 0 ? 'x' : axis == 2 ? 'z' : 'y';
}

double unitOfFile(const aiScene& scene, const AssetFormat& format) {
    float centimetres = 0.0F;
    const bool told =
        isFbx(format) && scene.mMetaData && scene.mMetaData->Get("UnitScaleFactor", centimetres);
    const double unit = static_cast<double>(centimetres) * kMetresPerCentimetre;
    return told && std::isfinite(unit) && unit > 0.0 ? unit : 1.0;
}

}  // namespace

Matrix sceneFrame(const aiScene& scene,
                  const AssetFormat& format,
                  const OvAssetImportOptions& options) {
    Matrix turn = turnToY(axisOfFile(scene, format));
    double scale = unitOfFile(scene, format);
    if (options.upAxis != 0) {
        turn = multiply(turnFromY(format.turnedAxis), turnToY(options.upAxis));
    }
    if (options.unitScale > 0.0) {
        const double done =
            format.scaledRoot ? meanScale(toRows(scene.mRootNode->mTransformation)) : 1.0;
        scale = options.unitScale / done;
    }
    return multiply(uniformScale(scale), turn);
}

}  // namespace AssimpImport
