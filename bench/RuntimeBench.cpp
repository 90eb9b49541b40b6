// SPDX-License-Identifier: Apache-2.0
// Scenes cooked on demand: locations of a fan-out of 32, each with a type, a matrix, a bound and
// four small attributes of its own, once generated and once stored in a file and loaded.
#include <OvSylvarProducers/ClientFactory.h>
#include <OvSylvarProducers/OpTreeSource.h>
#include <OvSylvarProducers/SyncGeometryProducer.h>
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>

#include "BenchScene.h"
#include "support/OpTree.h"
#include "support/Threads.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

using namespace ovbench;
using namespace SYLVAR;

namespace {

constexpr std::int64_t kSmall = 100'000;
constexpr std::int64_t kLarge = 1'000'000;

/// What to do at each location of a walk.
struct StepOnly {
    void operator()(GeometryProducer& /*location*/) const {}
};
struct ReadSixAttributes {
    void operator()(GeometryProducer& location) const {
        for (const char* const name : {"type", "xform", "bound", "value0", "value1", "value2"}) {
            benchmark::DoNotOptimize(location.getAttribute(name).handle());
        }
    }
};

/// Drops what a benchmark has cooked: the process keeps its client.
class Cleanup {
public:
    explicit Cleanup(std::shared_ptr<SylvarRuntime> runtime) : runtime_(std::move(runtime)) {}
    ~Cleanup() { runtime_->finalize(); }
    Cleanup(const Cleanup&) = delete;
    Cleanup& operator=(const Cleanup&) = delete;

private:
    std::shared_ptr<SylvarRuntime> runtime_;
};

/// The first walk, which cooks; the memory was touched by the walk before it.
void CookGenerated(benchmark::State& state) {
    const GroupAttribute tree = generatedTree(state.range(0), 1);
    const GeometryProducerPtr root = CreateThreadAwareGeometryProducer(tree, "/root");
    const Cleanup cleanup(root->getClient()->getRuntime());
    walk(root, StepOnly());
    for (auto _ : state) {
        state.PauseTiming();
        root->getClient()->getRuntime()->finalize();
        state.ResumeTiming();
        benchmark::DoNotOptimize(walk(root, StepOnly()));
    }
    tellPerLocation(state, state.range(0));
}
BENCHMARK(CookGenerated)->Arg(kSmall)->Arg(kLarge)->Unit(benchmark::kMillisecond);

template <class Visit>
void warmWalk(benchmark::State& state, const GroupAttribute& tree) {
    const GeometryProducerPtr root = CreateThreadAwareGeometryProducer(tree, "/root");
    const Cleanup cleanup(root->getClient()->getRuntime());
    const std::int64_t locations = walk(root, Visit());
    for (auto _ : state) {
        benchmark::DoNotOptimize(walk(root, Visit()));
    }
    tellPerLocation(state, locations);
    state.counters["bytes"] = bytesPerLocation(*root, locations);
}

void WarmStepGenerated(benchmark::State& state) {
    warmWalk<StepOnly>(state, generatedTree(state.range(0), 2));
}
BENCHMARK(WarmStepGenerated)->Arg(kSmall)->Arg(kLarge)->Unit(benchmark::kMillisecond);

void WarmReadGenerated(benchmark::State& state) {
    warmWalk<ReadSixAttributes>(state, generatedTree(state.range(0), 2));
}
BENCHMARK(WarmReadGenerated)->Arg(kSmall)->Arg(kLarge)->Unit(benchmark::kMillisecond);

/// A stored scene that is another file each time: with `walks`, until all of it was cooked,
/// otherwise until its top location is there.
void openStored(benchmark::State& state, bool walks) {
    const StoredScene scene(state.range(0));
    const auto client =
        ClientCreateWithOpTree(OpTreeSource::createFromGroupAttribute(scene.opTree()));
    const Cleanup cleanup(client->getRuntime());
    for (auto _ : state) {
        state.PauseTiming();
        scene.touch();
        client->getRuntime()->evict("/root");
        state.ResumeTiming();
        const GeometryProducerPtr root = CreateSyncGeometryProducer(client, "/root");
        benchmark::DoNotOptimize(walks ? walk(root, StepOnly()) : 1);
    }
    tellPerLocation(state, state.range(0));
}

void OpenStored(benchmark::State& state) {
    openStored(state, false);
}
BENCHMARK(OpenStored)->Arg(kSmall)->Arg(kLarge)->Unit(benchmark::kMillisecond);

void OpenAndCookStored(benchmark::State& state) {
    openStored(state, true);
}
BENCHMARK(OpenAndCookStored)->Arg(kSmall)->Arg(kLarge)->Unit(benchmark::kMillisecond);

void WarmStepStored(benchmark::State& state) {
    const StoredScene scene(state.range(0));
    warmWalk<StepOnly>(state, scene.opTree());
}
BENCHMARK(WarmStepStored)->Arg(kSmall)->Arg(kLarge)->Unit(benchmark::kMillisecond);

void WarmReadStored(benchmark::State& state) {
    const StoredScene scene(state.range(0));
    warmWalk<ReadSixAttributes>(state, scene.opTree());
}
BENCHMARK(WarmReadStored)->Arg(kSmall)->Arg(kLarge)->Unit(benchmark::kMillisecond);

/// Random locations of depth 3 and 4, each from the top.
void FindByPath(benchmark::State& state) {
    const auto client = ovtest::OpTree().op("g", "generate", generated(kLarge, 2)).open();
    std::vector<std::string> paths;
    std::mt19937 random(1);
    for (int i = 0; i < 4096; ++i) {
        std::string path = "/root";
        for (int level = 0; level < 3; ++level) {
            path += "/c" + std::to_string(random() % 32);
        }
        paths.push_back(path + "/c" + std::to_string(random() % 8));
        client->cookLocation(paths.back());
    }
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(client->cookLocation(paths[next++ % paths.size()]));
    }
}
BENCHMARK(FindByPath);

/// A client that was handed back, and its next user.
void ReuseClient(benchmark::State& state) {
    const OpTreeSource source = OpTreeSource::createFromGroupAttribute(generatedTree(100, 3));
    ClientInvalidate(ClientCreateWithOpTree(source));
    for (auto _ : state) {
        ClientInvalidate(ClientCreateWithOpTree(source));
    }
}
BENCHMARK(ReuseClient);

/// A client for a tree of 1,000 ops that another thread has already.
void NewClientOnManyOps(benchmark::State& state) {
    const GroupAttribute tree = chainOfOps(1000);
    const OpTreeSource source = OpTreeSource::createFromGroupAttribute(tree);
    const auto first = ClientCreateWithOpTree(source);
    for (auto _ : state) {
        benchmark::DoNotOptimize(ClientCreateWithOpTree(source));
    }
}
BENCHMARK(NewClientOnManyOps)->Unit(benchmark::kMicrosecond)->Iterations(200);

/// Warm walks of each thread, which share one top location. With halves: each its own half of the
/// tops' children; otherwise all the same first half.
void WarmWalkByThreads(benchmark::State& state) {
    const auto threads = static_cast<int>(state.range(0));
    const bool isShared = state.range(1) != 0;
    const GeometryProducerPtr root =
        CreateThreadAwareGeometryProducer(generatedTree(kSmall, 2), "/root");
    const Cleanup cleanup(root->getClient()->getRuntime());
    walk(root, StepOnly());
    std::int64_t locations = 0;
    for (auto _ : state) {
        std::array<std::int64_t, 16> counts{};
        ovtest::onThreads(threads, [&](int thread) {
            for (int repeat = 0; repeat < 10; ++repeat) {
                counts[static_cast<std::size_t>(thread)] +=
                    walkHalf(root, isShared ? 0 : thread % 2, ReadSixAttributes());
            }
        });
        locations = 0;
        for (const std::int64_t count : counts) {
            locations += count;
        }
    }
    tellPerLocation(state, locations);
}
BENCHMARK(WarmWalkByThreads)
    ->ArgNames({"threads", "same"})
    ->Args({1, 0})
    ->Args({2, 0})
    ->Args({2, 1})
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
