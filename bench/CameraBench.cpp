// SPDX-License-Identifier: Apache-2.0
// Cameras: one that is remembered, and points to the picture beside a plain loop of the same steps.
#include <OvSylvarProducers/Projection.h>
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>

#include "CountAllocations.h"
#include "support/OpTree.h"
#include "support/StaticScene.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <random>
#include <string>
#include <vector>

using namespace Sylvar3::internal::OvAttribute;
using ovbench::CountAllocations;
using SYLVAR::GeometryProducerPtr;
using Points = std::vector<Imath::Vec3<double>>;

namespace {

constexpr const char* kCamera = "/root/world/cam/camera";
constexpr const char* kLocation = "/root/world/geo/a";

/// A camera and a location, both moved.
ovtest::StaticScene scene() {
    GroupBuilder lens;
    lens.set("fov", DoubleAttribute(45.0))
        .set("near", DoubleAttribute(0.1))
        .set("far", DoubleAttribute(1000.0))
        .set("left", DoubleAttribute(-1.0))
        .set("right", DoubleAttribute(1.0))
        .set("top", DoubleAttribute(0.5625))
        .set("bottom", DoubleAttribute(-0.5625));
    return ovtest::StaticScene()
        .set(kCamera, "geometry", lens.build())
        .set(kCamera, "xform.translate", DoubleAttribute(std::vector<double>{1, 2, 30}))
        .set(kCamera, "xform.rotate", DoubleAttribute(std::vector<double>{20, 1, 2, 0}))
        .set(kLocation, "xform.translate", DoubleAttribute(std::vector<double>{-1, 0, 2}));
}

GeometryProducerPtr cookedScene() {
    const ovtest::OpTree tree =
        ovtest::OpTree().op("scene", "scene", ovtest::Args().set("tree", scene().group()));
    return SYLVAR::CreateThreadAwareGeometryProducer(tree.group(), "/root");
}

void findRememberedCamera(benchmark::State& state, const GeometryProducerPtr& root) {
    SYLVAR::ClearCameraInfoCache();
    const std::string path = kCamera;
    if (!SYLVAR::GetCameraInfo(root, path)) {
        state.SkipWithError("there is no camera");
        return;
    }
    const CountAllocations count(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(SYLVAR::GetCameraInfo(root, path).get());
    }
}

void RememberedCamera(benchmark::State& state) {
    findRememberedCamera(state, scene().open());
}
BENCHMARK(RememberedCamera);

void RememberedCameraOfARuntime(benchmark::State& state) {
    findRememberedCamera(state, cookedScene());
}
BENCHMARK(RememberedCameraOfARuntime);

/// In front of the camera, the same ones in every run.
Points randomPoints(std::int64_t count) {
    std::mt19937 random(1);
    const auto unit = [&random] { return static_cast<double>(random()) / 2147483648.0 - 1.0; };
    Points points;
    for (std::int64_t i = 0; i < count; ++i) {
        const double x = unit();
        const double y = unit();
        points.emplace_back(8 * x, 8 * y, 8 * unit());
    }
    return points;
}

void PointsToNDC(benchmark::State& state) {
    const GeometryProducerPtr location = scene().open(kLocation);
    const Points original = randomPoints(state.range(0));
    Points points = original;
    for (auto _ : state) {
        points = original;
        SYLVAR::ConvertPointListToNDC(location, kCamera, points);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(PointsToNDC)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);

/// What is the same for all points.
struct View {
    Imath::Matrix44<double> local;
    Imath::Vec3<double> eye;
    Imath::Vec3<double> forward;
    Imath::Vec3<double> up;
    Imath::Vec3<double> right;
    double tangent;
    std::shared_ptr<SYLVAR::CameraInfo> info;
};

View viewOf(const GeometryProducerPtr& root) {
    View view;
    view.info = SYLVAR::GetCameraInfo(root, kCamera);
    view.local.setTranslation(Imath::Vec3<double>(-1, 0, 2));
    view.eye = view.info->xform.translation();
    const Imath::Matrix44<double> turn = view.info->xform.inverse(false).transposed();
    turn.multDirMatrix(Imath::Vec3<double>(0, 0, -1), view.forward);
    turn.multDirMatrix(Imath::Vec3<double>(0, 1, 0), view.up);
    turn.multDirMatrix(Imath::Vec3<double>(1, 0, 0), view.right);
    view.forward.normalize();
    view.up.normalize();
    view.right.normalize();
    view.tangent = std::tan((double{view.info->fov} / 180.0) * 3.141592653589793 * 0.5);
    return view;
}

void convertPlainly(const View& view, Points& points) {
    const double left = view.info->left;
    const double right = view.info->right;
    const double bottom = view.info->bottom;
    const double top = view.info->top;
    const double near = view.info->near;
    const double depths = view.info->far - view.info->near;
    for (Imath::Vec3<double>& point : points) {
        Imath::Vec3<double> world;
        view.local.multVecMatrix(point, world);
        const Imath::Vec3<double> fromEye = world - view.eye;
        const double depth = view.forward.dot(fromEye);
        const Imath::Vec3<double> inPlane = fromEye - view.forward * depth;
        const double x = std::tan(std::atan2(view.right.dot(inPlane), depth)) / view.tangent;
        const double y = std::tan(std::atan2(view.up.dot(inPlane), depth)) / view.tangent;
        point.x = (x - left) / (right - left);
        point.y = (y - bottom) / (top - bottom);
        point.z = (depth - near) / depths;
    }
}

void PlainLoopToNDC(benchmark::State& state) {
    const GeometryProducerPtr location = scene().open(kLocation);
    const View view = viewOf(location->getRootProducer());
    const Points original = randomPoints(state.range(0));
    Points expected = original;
    SYLVAR::ConvertPointListToNDC(location, kCamera, expected);
    Points points = original;
    for (auto _ : state) {
        points = original;
        convertPlainly(view, points);
        benchmark::ClobberMemory();
    }
    if (points != expected) {
        state.SkipWithError("the loop is not the same arithmetic");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(PlainLoopToNDC)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);

}  // namespace
