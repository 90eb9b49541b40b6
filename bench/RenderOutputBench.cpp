// SPDX-License-Identifier: Apache-2.0
// What the plain table costs: calls of the library beside the same calls through the table, both
// from the same plain values. What the library remembers is there before.
#include <OvSylvarProducers/ArchPath.h>
#include <OvSylvarProducers/FlattenedMaterial.h>
#include <OvSylvarProducers/Projection.h>
#include <OvSylvarProducers/RenderOutputUtilsHost.h>
#include <OvSylvarProducers/RenderResolution.h>
#include <OvSylvarProducers/ScenegraphIteratorHost.h>
#include <OvSylvarProducers/ShadingNodeDescription.h>
#include <OvSylvarProducers/TextureAttributes.h>
#include <SylvarPlatform/Configuration.h>
#include <SylvarPlatform/SampleAccessor.h>

#include "CountAllocations.h"
#include "support/RenderOutputTable.h"
#include "support/StaticScene.h"

#include <benchmark/benchmark.h>

#include <array>
#include <iterator>
#include <set>
#include <string>
#include <vector>

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using benchmark::DoNotOptimize;

namespace {

constexpr const char* kCamera = "/root/world/cam/camera";
constexpr const char* kImage = "/shows/film/shot/beauty.0001.exr";
constexpr const char* kArchPath = "/plugins/%ARCH/lib";
constexpr const char* kTileTemplateKey = "VARLIN_TILE_FILENAME";
constexpr const char* kTileTemplate = "@COLUMN@_@ROW@ of @COLUMNS@_@ROWS@/@STEM@@EXT@";
constexpr std::array<float, 5> kSampleTimes = {0.5F, -0.5F, 0, 0.25F, -0.25F};

/// Two nodes, of which one drives the other.
GroupAttribute network() {
    return GroupBuilder()
        .set("style", StringAttribute("network"))
        .set("nodes.wood.name", StringAttribute("wood"))
        .set("nodes.wood.type", StringAttribute("standard_surface"))
        .set("nodes.wood.parameters.base", FloatAttribute(0.5F))
        .set("nodes.wood.connections.base_color", StringAttribute("out@grain"))
        .set("nodes.grain.name", StringAttribute("grain"))
        .set("nodes.grain.type", StringAttribute("image"))
        .set("terminals.surface", StringAttribute("wood"))
        .build();
}

GroupAttribute lens() {
    GroupBuilder builder;
    for (const char* name : {"fov", "near", "far", "left", "right", "top", "bottom"}) {
        builder.set(name, DoubleAttribute(1.0));
    }
    return builder.build();
}

/// A render's root with a camera, a material and a tile, as a producer and as an iterator.
class Scene {
public:
    Scene() {
        iterators.sgRetain(root);
        ShadingNodeDescription::GetShadingNetworkNodes(network(), nodes);
    }
    ~Scene() {
        table.releaseShadingNode(node);
        table.freeShadingNetworkNodes(nodeHandles);
        iterators.sgRelease(root);
        EmptyFlattenedMaterialCache();
        ClearCameraInfoCache();
    }
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    const OvRenderOutputUtilsSuite& table = ovtest::renderOutputTable();
    const OvScenegraphIteratorSuite& iterators = ovtest::iteratorTable();
    const OvAttributeSuite& attributes = *OvGetAttributeSuite();

    const GeometryProducerPtr producer =
        ovtest::StaticScene()
            .set("/root", "renderSettings.cameraName", kCamera)
            .set("/root", "renderSettings.resolution", "hd_720")
            .set("/root", "renderSettings.tileRender", IntAttribute(std::vector<int>{1, 2, 3, 4}))
            .set("/root", "material", network())
            .set(kCamera, "geometry", lens())
            .open();
    OvSgIteratorStruct* const root = OvGeometryProducerToHandle(producer);
    const StringAttribute terminals{"surface"};
    const GroupAttribute textures{{{"color", StringAttribute("wood.tx")}}, false};

    ShadingNodeDescription::Nodes nodes;
    OvShadingNetworkNodesStruct* const nodeHandles =
        table.getShadingNetworkNodesFromAttr(network().handle());
    ShadingNodeDescriptionStruct* const node = table.getShadingNetworkNode(nodeHandles, "wood");

    void drop(OvAttributeStruct* attribute) const { attributes.release(attribute); }
    const ShadingNodeDescription& wood() const { return *nodes.at("wood"); }
};

using Call = void (*)(const Scene&);

void measure(benchmark::State& state, Call call) {
    const Scene scene;
    call(scene);
    const ovbench::CountAllocations count(state);
    for (auto _ : state) {
        call(scene);
    }
}

void ByLibrary(benchmark::State& state, Call call) {
    measure(state, call);
}

void ByTable(benchmark::State& state, Call call) {
    measure(state, call);
}

#define OV_BENCH_PAIR(call)                              \
    BENCHMARK_CAPTURE(ByLibrary, call, byLibrary::call); \
    BENCHMARK_CAPTURE(ByTable, call, byTable::call)

namespace byLibrary {

void cameraInfo(const Scene& scene) {
    DoNotOptimize(GetCameraInfo(scene.producer, kCamera).get());
}

void cameraPath(const Scene& scene) {
    DoNotOptimize(GetCameraPath(scene.producer).data());
}

void renderResolution(const Scene& scene) {
    std::string name;
    int size[2] = {};
    GetRenderResolution(&name, &size[0], &size[1], scene.producer);
    DoNotOptimize(size);
}

void sampleTimes(const Scene&) {
    const std::set<float> samples(kSampleTimes.begin(), kSampleTimes.end());
    std::vector<float> result;
    FindSampleTimesRelevantToShutterRange(samples, -0.3F, 0.3F, result);
    DoNotOptimize(result.data());
}

void flattenedMaterial(const Scene& scene) {
    const SampleAccessor<StringAttribute> names(scene.terminals, 0.0F);
    const std::vector<std::string> terminals(names.begin(), names.end());
    DoNotOptimize(GetFlattenedMaterialAttr(scene.producer, terminals).handle());
}

void shadingNode(const Scene& scene) {
    const auto node = scene.nodes.find("wood")->second;
    DoNotOptimize(node.get());
}

void shadingParameter(const Scene& scene) {
    DoNotOptimize(scene.wood().getParameter("base").handle());
}

void shadingConnection(const Scene& scene) {
    DoNotOptimize(scene.wood().getConnection("base_color").get());
}

void textures(const Scene& scene) {
    DoNotOptimize(ConvertTexturesToArbitraryAttr(scene.textures).handle());
}

void archString(const Scene&) {
    DoNotOptimize(GetArchString().data());
}

void archPath(const Scene&) {
    DoNotOptimize(ExpandArchPath(kArchPath).data());
}

void tilePath(const Scene& scene) {
    const auto numbers = castAttribute<IntAttribute>(
        scene.producer->getGlobalAttribute("renderSettings.tileRender"));
    const SampleAccessor<IntAttribute> nearest(numbers, 0.0F);
    const std::vector<int> tile(nearest.begin(), nearest.end());
    DoNotOptimize(RenderOutputUtilsHost::ProcessTilePath(kImage, tile).data());
}

}  // namespace byLibrary

namespace byTable {

void cameraInfo(const Scene& scene) {
    scene.table.releaseCameraInfo(scene.table.getCameraInfo(scene.root, kCamera));
}

void cameraPath(const Scene& scene) {
    scene.drop(scene.table.getCameraPath(scene.root));
}

void renderResolution(const Scene& scene) {
    int size[2] = {};
    scene.drop(scene.table.getRenderResolution(scene.root, &size[0], &size[1]));
    DoNotOptimize(size);
}

void sampleTimes(const Scene& scene) {
    scene.drop(scene.table.findSampleTimesRelevantToShutterRange(
        kSampleTimes.data(), static_cast<unsigned>(kSampleTimes.size()), -0.3F, 0.3F));
}

void flattenedMaterial(const Scene& scene) {
    scene.drop(scene.table.getFlattenedMaterialAttr(scene.root, scene.terminals.handle()));
}

void shadingNode(const Scene& scene) {
    scene.table.releaseShadingNode(scene.table.getShadingNetworkNode(scene.nodeHandles, "wood"));
}

void shadingParameter(const Scene& scene) {
    scene.drop(scene.table.getShadingNodeParameter(scene.node, "base"));
}

void shadingConnection(const Scene& scene) {
    scene.table.releaseShadingNodeConnection(
        scene.table.getShadingNodeConnection(scene.node, "base_color"));
}

void textures(const Scene& scene) {
    scene.drop(scene.table.convertTexturesToArbitraryAttr(scene.textures.handle()));
}

void archString(const Scene& scene) {
    scene.drop(scene.table.getArchString());
}

void archPath(const Scene& scene) {
    scene.drop(scene.table.expandArchPath(kArchPath));
}

void tilePath(const Scene& scene) {
    scene.drop(scene.table.processTilePath(scene.root, kImage));
}

}  // namespace byTable

OV_BENCH_PAIR(cameraInfo);
OV_BENCH_PAIR(cameraPath);
OV_BENCH_PAIR(renderResolution);
OV_BENCH_PAIR(sampleTimes);
OV_BENCH_PAIR(flattenedMaterial);
OV_BENCH_PAIR(shadingNode);
OV_BENCH_PAIR(shadingParameter);
OV_BENCH_PAIR(shadingConnection);
OV_BENCH_PAIR(textures);
OV_BENCH_PAIR(archString);
OV_BENCH_PAIR(archPath);
OV_BENCH_PAIR(tilePath);

/// By a template with a token of every kind but the default name.
void tilePathByTemplate(benchmark::State& state, Call call) {
    auto* const config = Sylvar3::OvConfiguration::v1::Config();
    config->set(kTileTemplateKey, kTileTemplate);
    measure(state, call);
    config->unset(kTileTemplateKey);
}

void ByLibraryAndTemplate(benchmark::State& state) {
    tilePathByTemplate(state, byLibrary::tilePath);
}
BENCHMARK(ByLibraryAndTemplate)->Name("ByLibrary/tilePathByTemplate");

void ByTableAndTemplate(benchmark::State& state) {
    tilePathByTemplate(state, byTable::tilePath);
}
BENCHMARK(ByTableAndTemplate)->Name("ByTable/tilePathByTemplate");

/// What stands beside the table's figures: an attribute of a text by itself.
void StringAttributeMade(benchmark::State& state) {
    const std::string text = kImage;
    const ovbench::CountAllocations count(state);
    for (auto _ : state) {
        DoNotOptimize(StringAttribute(text).handle());
    }
}
BENCHMARK(StringAttributeMade);

}  // namespace
