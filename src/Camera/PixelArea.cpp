// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/Projection.h>
#include <ResolutionTableOv/ResolutionTable.h>
#include <SylvarPlatform/SampleAccessor.h>

#include "Camera/CameraBasis.h"
#include "Camera/GlobalMatrix.h"
#include "Platform/Support/TruncatedInt.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <stdexcept>

namespace SYLVAR {
namespace {

namespace OvAttribute = Sylvar3::internal::OvAttribute;
using Vector = Imath::Vec3<double>;
using ORM_OV::ResolutionTable::v4::GetResolutionTable;
using Sylvar3::internal::Support::truncatedInt;

struct PictureSize {
    int width;
    int height;
};

/// Nothing when no table knows the name.
std::optional<PictureSize> pictureSize(const std::string& resolutionName) {
    const auto table = GetResolutionTable(nullptr);
    if (!table) {
        return std::nullopt;
    }
    try {
        const auto resolution = table->getResolution(resolutionName);
        return PictureSize{resolution.width, resolution.height};
    } catch (...) {  // an unknown name has no area, and nobody is told
        return std::nullopt;
    }
}

std::array<Vector, 8> boundCorners(GeometryProducer& producer) {
    using OvAttribute::DoubleAttribute;
    constexpr std::int64_t kBoundValues = 6;
    const OvAttribute::SampleAccessor<DoubleAttribute> bound(
        OvAttribute::castAttribute<DoubleAttribute>(producer.getAttribute("bound")), 0.0F);
    const double* const b = bound.getNearest();
    if (!b || bound.getNumberOfValues() != kBoundValues) {
        throw std::runtime_error("Cannot get bounds attribute on " + producer.getFullName());
    }
    return {Vector(b[0], b[2], b[4]),
            Vector(b[0], b[2], b[5]),
            Vector(b[0], b[3], b[4]),
            Vector(b[0], b[3], b[5]),
            Vector(b[1], b[2], b[4]),
            Vector(b[1], b[2], b[5]),
            Vector(b[1], b[3], b[4]),
            Vector(b[1], b[3], b[5])};
}

/// The least and the greatest of some numbers.
struct Range {
    double least;
    double greatest;

    void add(double number) {
        least = number < least ? number : least;
        greatest = number > greatest ? number : greatest;
    }
};

/// Where corners lie as a camera sees them, in the units of its screen rectangle.
struct ScreenExtent {
    Range x;
    Range y;
};

ScreenExtent extentOf(const std::array<Vector, 8>& corners,
                      const Imath::Matrix44<double>& local,
                      const CameraInfo& info) {
    const CameraBasis camera(info);
    const auto coordinatesOf = [&](const Vector& corner) {
        Vector world;
        local.multVecMatrix(corner, world);
        return camera.coordinatesOf(world);
    };
    const CameraCoordinates first = coordinatesOf(corners[0]);
    ScreenExtent place{{first.x, first.x}, {first.y, first.y}};
    ScreenExtent angle{{first.angleX, first.angleX}, {first.angleY, first.angleY}};
    for (const Vector& corner : corners) {
        const CameraCoordinates at = coordinatesOf(corner);
        place.x.add(at.x);
        place.y.add(at.y);
        angle.x.add(at.angleX);
        angle.y.add(at.angleY);
    }
    if (info.orthographic) {
        return place;
    }
    const double tangent = halfViewTangent(info);
    const auto onScreen = [tangent](const Range& angles) {
        return Range{std::tan(angles.least) / tangent, std::tan(angles.greatest) / tangent};
    };
    return {onScreen(angle.x), onScreen(angle.y)};
}

/// The part of a screen rectangle from `from` to `to` that a range takes up.
double partOf(const Range& range, float from, float to) {
    const double size = to - from;
    return (range.greatest - from) / size - (range.least - from) / size;
}

/// As int arithmetic has it where it goes beyond all ints.
int product(int a, int b) {
    return static_cast<int>(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}

}  // namespace

int GetPixelAreaThroughCamera(GeometryProducerPtr producer,
                              const std::string& cameraPath,
                              const std::string& resolutionName) {
    const auto info = producer ? GetCameraInfo(producer->getRootProducer(), cameraPath) : nullptr;
    if (!info) {
        return 0;
    }
    const std::optional<PictureSize> picture = pictureSize(resolutionName);
    if (!picture) {
        return 0;
    }
    const auto local = GetGlobalMatrixAtTimeZero(producer->getGlobalXFormGroup());
    const ScreenExtent extent = extentOf(boundCorners(*producer), local, *info);
    const double width = partOf(extent.x, info->left, info->right) * picture->width;
    const double height = partOf(extent.y, info->bottom, info->top) * picture->height;
    return product(truncatedInt(width), truncatedInt(height));
}

}  // namespace SYLVAR
