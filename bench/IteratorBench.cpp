// SPDX-License-Identifier: Apache-2.0
// The scene through the plain table, beside the same through producers: what the table itself
// costs. The scene is cooked before.
#include <OvSylvarProducers/ScenegraphIteratorHost.h>
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>

#include "BenchScene.h"
#include "support/IteratorTable.h"

#include <benchmark/benchmark.h>

#include <cstdint>

using namespace ovbench;

namespace {

using Handle = OvSgIteratorStruct*;

constexpr std::int64_t kLocations = 10'000;

/// /root of a generated scene, and its first child, both as a producer and as an iterator.
class Scene {
public:
    Scene() {
        table.sgRetain(root);
        table.sgRetain(child);
    }
    ~Scene() {
        table.sgRelease(root);
        table.sgRelease(child);
    }
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    const OvScenegraphIteratorSuite& table = ovtest::iteratorTable();
    const OvAttributeSuite& attributes = *OvGetAttributeSuite();
    const GeometryProducerPtr rootProducer =
        SYLVAR::CreateThreadAwareGeometryProducer(generatedTree(kLocations, 7), "/root");
    const GeometryProducerPtr childProducer = rootProducer->getFirstChild(false);
    const Handle root = SYLVAR::OvGeometryProducerToHandle(rootProducer);
    const Handle child = SYLVAR::OvGeometryProducerToHandle(childProducer);
};

/// @name A step down and a step aside
/// @{
void StepByProducer(benchmark::State& state) {
    const Scene scene;
    for (auto _ : state) {
        benchmark::DoNotOptimize(scene.rootProducer->getFirstChild(false));
        benchmark::DoNotOptimize(scene.childProducer->getNextSibling(false));
    }
    state.SetItemsProcessed(2 * state.iterations());
}
BENCHMARK(StepByProducer);

void StepByTable(benchmark::State& state) {
    const Scene scene;
    const auto keepAndDrop = [&scene](Handle handle) {
        scene.table.sgRetain(handle);
        scene.table.sgRelease(handle);
    };
    for (auto _ : state) {
        keepAndDrop(scene.table.sgGetFirstChild(scene.root, 0));
        keepAndDrop(scene.table.sgGetNextSibling(scene.child, 0));
    }
    state.SetItemsProcessed(2 * state.iterations());
}
BENCHMARK(StepByTable);
/// @}

void Name(benchmark::State& state) {
    const Scene scene;
    for (auto _ : state) {
        scene.attributes.release(scene.table.sgGetName(scene.child));
    }
}
BENCHMARK(Name);

void FullName(benchmark::State& state) {
    const Scene scene;
    for (auto _ : state) {
        scene.attributes.release(scene.table.sgGetFullName(scene.child));
    }
}
BENCHMARK(FullName);

void AttributeByProducer(benchmark::State& state) {
    const Scene scene;
    for (auto _ : state) {
        benchmark::DoNotOptimize(scene.childProducer->getAttribute("bound"));
    }
}
BENCHMARK(AttributeByProducer);

void AttributeByTable(benchmark::State& state) {
    const Scene scene;
    for (auto _ : state) {
        scene.attributes.release(scene.table.sgGetAttribute(scene.child, "bound"));
    }
}
BENCHMARK(AttributeByTable);

void RetainAndReleaseIterator(benchmark::State& state) {
    const Scene scene;
    for (auto _ : state) {
        scene.table.sgRetain(scene.child);
        scene.table.sgRelease(scene.child);
    }
}
BENCHMARK(RetainAndReleaseIterator);

}  // namespace
