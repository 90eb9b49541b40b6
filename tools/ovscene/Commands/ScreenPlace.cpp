// SPDX-License-Identifier: Apache-2.0
#include "Commands/ScreenPlace.h"

#include <OvSylvarProducers/Projection.h>
#include <SylvarPlatform/SampleAccessor.h>
#include <SylvarPlatform/XFormUtil.h>

#include "ExitStatus.h"
#include "Print/AttributeText.h"

#include <algorithm>
#include <vector>

namespace ovscene {
namespace {

namespace OvAttribute = Sylvar3::internal::OvAttribute;
using OvAttribute::DoubleAttribute;
using Samples = OvAttribute::SampleAccessor<DoubleAttribute>;
using SYLVAR::GeometryProducerPtr;
using Sylvar3::internal::OvSylvarServices::OvXFormUtil;

constexpr std::int64_t kBoundValues = 6;
constexpr std::int64_t kMatrixValues = 16;

std::vector<Imath::V3d> cornersOf(const double* bound) {
    std::vector<Imath::V3d> corners;
    for (const double x : {bound[0], bound[1]}) {
        for (const double y : {bound[2], bound[3]}) {
            corners.emplace_back(x, y, bound[4]);
            corners.emplace_back(x, y, bound[5]);
        }
    }
    return corners;
}

std::vector<Imath::V3d> cornersOf(const SceneFile& file,
                                  const GeometryProducerPtr& location,
                                  const std::string& path) {
    const Attribute bound = location->getAttribute("bound");
    const Samples samples(bound, 0.0F);
    if (!samples.getNearest() || samples.getNumberOfValues() != kBoundValues) {
        throw CommandError(ExitStatus::NotFound,
                           file.name + ": no bound at " + path + "; its \"bound\" is " +
                               (bound ? kindText(bound) + ", not 6 doubles" : "missing"));
    }
    return cornersOf(samples.getNearest());
}

Imath::M44d worldMatrix(const GeometryProducerPtr& location) {
    const DoubleAttribute value =
        OvXFormUtil::CalcTransformMatrixAtTime(location->getGlobalXFormGroup(), 0.0F).attribute;
    const Samples samples(value, 0.0F);
    Imath::M44d matrix;
    if (samples.getNearest()) {
        std::copy_n(samples.getNearest(), kMatrixValues, matrix.getValue());
    }
    return matrix;
}

/// What `GetLocalToScreenMatrix` gives for the render's camera, for another one.
Imath::M44d localToScreen(const GeometryProducerPtr& location, const CameraView& view) {
    if (view.isRenders) {
        return SYLVAR::GetLocalToScreenMatrix(location);
    }
    Imath::M44d half;
    Imath::M44d middle;
    Imath::M44d size;
    half.setScale(Imath::V3d(0.5, 0.5, 0.5));
    middle.setTranslation(Imath::V3d(0.5, 0.5, 0.5));
    size.setScale(Imath::V3d(view.picture.width, view.picture.height, 1.0));
    return worldMatrix(location) * view.info->xform.inverse(false) * view.projection * half *
           middle * size;
}

/// The distance from the camera along its axis of a depth from 0, near, to 1, far.
double distanceOf(const SYLVAR::CameraInfo& info, double depth) {
    return static_cast<double>(info.near) + depth * static_cast<double>(info.far - info.near);
}

/// Begins with a corner, so that what is no number stays so.
Imath::Box3d boundsOf(const std::vector<Imath::V3d>& corners) {
    Imath::Box3d bounds(corners.front());
    for (const Imath::V3d& corner : corners) {
        bounds.extendBy(corner);
    }
    return bounds;
}

}  // namespace

ScreenPlace screenPlace(const SceneFile& file,
                        const GeometryProducerPtr& location,
                        const std::string& path,
                        const CameraView& view) {
    std::vector<Imath::V3d> corners = cornersOf(file, location, path);
    ScreenPlace place;
    place.localToScreen = localToScreen(location, view);
    place.pixelArea = SYLVAR::GetPixelAreaThroughCamera(location, view.path, view.picture.name);
    SYLVAR::ConvertPointListToNDC(location, view.path, corners);
    place.normalised = boundsOf(corners);
    for (Imath::V3d& corner : corners) {
        corner = {corner.x * view.picture.width,
                  corner.y * view.picture.height,
                  distanceOf(*view.info, corner.z)};
        place.cornersBehind += corner.z <= 0 ? 1 : 0;
    }
    place.pixels = boundsOf(corners);
    return place;
}

}  // namespace ovscene
