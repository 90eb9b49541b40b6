// SPDX-License-Identifier: Apache-2.0
// What ops add to a scene: to its first walk, over an input that was cooked before, and to later
// walks. The generated scene by itself is the measure for both.
#include <OvSylvarProducers/SyncGeometryProducer.h>

#include "BenchScene.h"
#include "support/OpTree.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

using namespace ovbench;
using namespace ovtest;
using namespace SYLVAR;
using Sylvar3::internal::OvAttribute::DoubleAttribute;

namespace {

constexpr std::int64_t kLocations = 100'000;
constexpr int kSeed = 7;

DoubleAttribute matrix() {
    return DoubleAttribute(std::vector<double>{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 2, 3, 1}, 16);
}

GroupAttribute group(const char* name) {
    return Args().set(name, 1);
}

/// Patterns that match all of the scene, or none of it.
Args paths(const char* pattern, int number) {
    return Args().set("paths",
                      std::vector<std::string>{pattern, "/unlike/" + std::to_string(number)});
}
Args allPaths(int number) {
    return paths("/root/**", number);
}

/// Arguments of an op. Two ops of equal arguments are one op, and cooked once: the number tells
/// them apart.
using Arguments = Args (*)(int number);

/// An op over the generated scene. One with two inputs has a small scene as the second, which is
/// another for each number.
struct OpCase {
    const char* type;
    Arguments arguments;
    std::vector<std::string> inputs = {"scene"};
};

const OpCase kCases[] = {
    {"merge", [](int) { return Args(); }, {"scene", "small"}},
    {"mount", [](int) { return Args().set("at", "/root/mounted"); }, {"scene", "small"}},
    {"prune", [](int number) { return paths("/root/nowhere/*", number); }},
    {"isolate", allPaths},
    {"setAttributes", [](int number) { return allPaths(number).set("values", group("value0")); }},
    {"deleteAttributes", [](int number) { return allPaths(number).set("names", "value0"); }},
    {"transform", [](int number) { return allPaths(number).set("matrix", matrix()); }},
    {"assignMaterial", [](int number) { return allPaths(number).set("material", group("gloss")); }},
    {"renderSettings", [](int number) { return Args().set("tempDir", std::to_string(number)); }},
    {"duplicate",
     [](int number) {
         return Args().set("source", "/root/c0").set("name", "copy" + std::to_string(number));
     }},
    {"instance",
     [](int number) {
         return Args()
             .set("prototypes", "/root/c0")
             .set("matrices", matrix())
             .set("parent", "/root/copies" + std::to_string(number));
     }},
};

std::shared_ptr<SylvarRuntime::Client> open(const OpCase& op, int number) {
    return OpTree()
        .op("small", "generate", Args().set("breadth", 1).set("depth", 1).set("seed", number))
        .op("scene", "generate", generated(kLocations, kSeed))
        .op("op", op.type, op.arguments(number), op.inputs)
        .open();
}

std::int64_t walkAll(const std::shared_ptr<SylvarRuntime::Client>& client) {
    return walk(CreateSyncGeometryProducer(client, "/root"), [](GeometryProducer&) {});
}

/// The scene by itself, cooked, for the life of the process.
const std::shared_ptr<SylvarRuntime::Client>& input() {
    static const auto& client = *new std::shared_ptr<SylvarRuntime::Client>([] {
        auto opened = OpTree().op("scene", "generate", generated(kLocations, kSeed)).open();
        walkAll(opened);
        return opened;
    }());
    return client;
}

void warmInput(benchmark::State& state) {
    std::int64_t locations = 0;
    for (auto _ : state) {
        locations = walkAll(input());
    }
    tellPerLocation(state, locations);
}

/// The first walk of an op; its input was walked before.
void firstWalk(benchmark::State& state, const OpCase& op) {
    input();
    std::int64_t locations = 0;
    int number = 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto client = open(op, ++number);
        state.ResumeTiming();
        locations = walkAll(client);
        state.PauseTiming();
        client.reset();
        state.ResumeTiming();
    }
    tellPerLocation(state, locations);
}

void warmWalk(benchmark::State& state, const OpCase& op) {
    const auto client = open(op, 0);
    std::int64_t locations = walkAll(client);
    for (auto _ : state) {
        locations = walkAll(client);
    }
    tellPerLocation(state, locations);
}

/// A scene that is copies alone.
OpTree copies(const char* type, const Args& arguments) {
    OpTree tree;
    tree.op("model", "generate", Args().set("shape", "wide").set("breadth", 1));
    tree.op("op", type, arguments, {"model"});
    return tree;
}

void firstCopies(benchmark::State& state, const char* type, Arguments arguments) {
    const auto client = copies(type, arguments(static_cast<int>(state.range(0)))).open();
    std::int64_t locations = walkAll(client);
    for (auto _ : state) {
        state.PauseTiming();
        client->getRuntime()->evict("/root");
        state.ResumeTiming();
        locations = walkAll(client);
    }
    tellPerLocation(state, locations);
    state.counters["bytes"] =
        bytesPerLocation(*CreateSyncGeometryProducer(client, "/root"), locations);
}

Args duplicates(int count) {
    return Args().set("source", "/root/c0").set("copies", count).set("transform", matrix());
}

Args instances(int count) {
    std::vector<double> positions(static_cast<std::size_t>(count) * 3);
    for (std::size_t i = 0; i < positions.size(); ++i) {
        positions[i] = static_cast<double>(i);
    }
    return Args()
        .set("prototypes", "/root/c0")
        .set("parent", "/root/copies")
        .set("positions", DoubleAttribute(positions, 3));
}

bool registerAll() {
    benchmark::RegisterBenchmark("WarmStep/input", warmInput)->Unit(benchmark::kMillisecond);
    for (const OpCase& op : kCases) {
        const std::string type = op.type;
        benchmark::RegisterBenchmark(("FirstCook/" + type).c_str(), firstWalk, op)
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(("WarmStep/" + type).c_str(), warmWalk, op)
            ->Unit(benchmark::kMillisecond);
    }
    for (const auto& [type, arguments] :
         {std::pair<const char*, Arguments>("duplicate", duplicates), {"instance", instances}}) {
        benchmark::RegisterBenchmark(
            ("Copies/" + std::string(type)).c_str(), firstCopies, type, arguments)
            ->Arg(100'000)
            ->Arg(1'000'000)
            ->Unit(benchmark::kMillisecond);
    }
    return true;
}

const bool areRegistered = registerAll();

}  // namespace
