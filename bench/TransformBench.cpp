// SPDX-License-Identifier: Apache-2.0
// World matrices: from a location of a cooked scene, with the chain's group and without, and of
// transforms in parts that move.
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>
#include <SylvarPlatform/XFormUtil.h>

#include "BenchScene.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

using namespace Sylvar3::internal::OvAttribute;
using namespace ovbench;
using Sylvar3::internal::OvSylvarServices::OvXFormUtil;

namespace {

/// A location at depth 4: each of the 5 of its chain has an "xform" with a "matrix".
GeometryProducerPtr deepLocation() {
    const auto root = SYLVAR::CreateThreadAwareGeometryProducer(generatedTree(100'000, 7), "/root");
    return root->getProducerByPath("root/c1/c2/c3/c4", false);
}

void WorldMatrix(benchmark::State& state) {
    const GeometryProducerPtr location = deepLocation();
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            OvXFormUtil::CalcTransformMatrixAtTime(location->getGlobalXFormGroup(), 0.0F));
    }
}
BENCHMARK(WorldMatrix);

void GlobalXFormGroup(benchmark::State& state) {
    const GeometryProducerPtr location = deepLocation();
    for (auto _ : state) {
        benchmark::DoNotOptimize(location->getGlobalXFormGroup().handle());
    }
}
BENCHMARK(GlobalXFormGroup);

void MatrixOfGroup(benchmark::State& state) {
    const GroupAttribute chain = deepLocation()->getGlobalXFormGroup();
    for (auto _ : state) {
        benchmark::DoNotOptimize(OvXFormUtil::CalcTransformMatrixAtTime(chain, 0.0F));
    }
}
BENCHMARK(MatrixOfGroup);

DoubleAttribute moving(const std::vector<double>& values, double by) {
    TimedSamples<double> samples;
    for (const float time : {-0.25F, 0.0F, 0.25F}) {
        samples.emplace_back(time, values);
        for (double& value : samples.back().second) {
            value += by * double{time};
        }
    }
    return DoubleAttribute(samples);
}

/// Five locations that are moved, turned and scaled, each with 3 samples.
GroupAttribute movingChain() {
    const GroupAttribute transform({{"translate", moving({1, 2, 3}, 0.1)},
                                    {"rotate", moving({30, 1, 2, 3}, 5)},
                                    {"scale", moving({1, 1, 2}, 0.1)}},
                                   false);
    std::vector<GroupAttribute::Child> levels;
    for (int i = 0; i < 5; ++i) {
        levels.emplace_back("i" + std::to_string(i), transform);
    }
    return GroupAttribute(levels, false);
}

void MovingMatrixAtTime(benchmark::State& state) {
    const GroupAttribute chain = movingChain();
    for (auto _ : state) {
        benchmark::DoNotOptimize(OvXFormUtil::CalcTransformMatrixAtTime(chain, 0.1F));
    }
}
BENCHMARK(MovingMatrixAtTime);

void MovingMatrixAtExistingTimes(benchmark::State& state) {
    const GroupAttribute chain = movingChain();
    for (auto _ : state) {
        benchmark::DoNotOptimize(OvXFormUtil::CalcTransformMatrixAtExistingTimes(chain));
    }
}
BENCHMARK(MovingMatrixAtExistingTimes);

}  // namespace
