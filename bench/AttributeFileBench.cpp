// SPDX-License-Identifier: Apache-2.0
// Reading a stored scene: 100,000 locations with 8 attributes each.
#include <SylvarPlatform/AttributeFile.h>
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupBuilder.h>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <malloc.h>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvAttribute;

constexpr std::int64_t kAttributesOfALocation = 8;

/// The attributes of a location, each but the type with values of its own.
GroupAttribute attributesOf(std::int64_t number) {
    const double n = static_cast<double>(number);
    std::vector<double> matrix(16, 0.0);
    matrix[0] = matrix[5] = matrix[10] = matrix[15] = 1.0;
    matrix[12] = n * 0.25;
    return GroupBuilder(GroupBuilder::Mode::Flat)
        .set("type", StringAttribute("mesh"))
        .set("xform", DoubleAttribute(matrix, 16))
        .set("bound", DoubleAttribute(std::vector<double>{n, n + 1, n, n + 2, n, n + 3}))
        .set("id", IntAttribute(static_cast<std::int32_t>(number)))
        .set("label", StringAttribute("label" + std::to_string(number)))
        .set("weight", FloatAttribute(static_cast<float>(n) * 0.5F))
        .set("color", FloatAttribute(std::vector<float>{static_cast<float>(n), 0.5F, 0.25F}, 3))
        .set("height", DoubleAttribute(n * 0.125))
        .build();
}

/// A tree of fan-out 32, filled level by level from the back so that children stand before parents.
GroupAttribute sceneOf(std::int64_t count) {
    constexpr std::int64_t kFanOut = 32;
    std::vector<GroupAttribute> made(static_cast<std::size_t>(count));
    for (std::int64_t i = count - 1; i >= 0; --i) {
        GroupBuilder location(GroupBuilder::Mode::Flat);
        location.set("a", attributesOf(i));
        GroupBuilder children(GroupBuilder::Mode::Flat);
        const std::int64_t first = i * kFanOut + 1;
        for (std::int64_t child = first; child < count && child < first + kFanOut; ++child) {
            children.set("location" + std::to_string(child - first),
                         std::exchange(made[static_cast<std::size_t>(child)], GroupAttribute()));
        }
        if (first < count) {
            location.set("c", children.build());
        }
        made[static_cast<std::size_t>(i)] = location.build();
    }
    return made[0];
}

int append(void* stream, const void* bytes, long size) {
    static_cast<std::string*>(stream)->append(static_cast<const char*>(bytes),
                                              static_cast<std::size_t>(size));
    return 1;
}

std::string stored(AttributeForm form, std::int64_t locations) {
    std::string bytes;
    const std::string error =
        writeAttribute(sceneOf(locations), AttributeContent::StaticScene, form, &bytes, append);
    if (!error.empty()) {
        std::fprintf(stderr, "%s\n", error.c_str());
    }
    return bytes;
}

double bytesInUse() {
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

/// What a scene that was read keeps of the memory.
double bytesHeldBy(const std::string& bytes) {
    const double before = bytesInUse();
    const AttributeReadResult result = readAttributeBytes(bytes.data(), bytes.size());
    return bytesInUse() - before;
}

void readScene(benchmark::State& state, AttributeForm form) {
    const std::int64_t locations = state.range(0);
    const std::string bytes = stored(form, locations);
    const double held = bytesHeldBy(bytes);
    for (auto _ : state) {
        AttributeReadResult result = readAttributeBytes(bytes.data(), bytes.size());
        if (!result.attribute) {
            state.SkipWithError(result.error.c_str());
            break;
        }
        state.PauseTiming();
        result = AttributeReadResult();
        state.ResumeTiming();
    }
    const auto attributes = static_cast<double>(locations * kAttributesOfALocation);
    using benchmark::Counter;
    state.counters["time/attribute"] =
        Counter(attributes, Counter::kIsIterationInvariantRate | Counter::kInvert);
    state.counters["bytes/location"] = held / static_cast<double>(locations);
    state.counters["file bytes/location"] =
        static_cast<double>(bytes.size()) / static_cast<double>(locations);
}

void ReadBinaryScene(benchmark::State& state) {
    readScene(state, AttributeForm::Binary);
}
BENCHMARK(ReadBinaryScene)->Arg(100'000)->Unit(benchmark::kMillisecond);

void ReadTextScene(benchmark::State& state) {
    readScene(state, AttributeForm::Text);
}
BENCHMARK(ReadTextScene)->Arg(100'000)->Unit(benchmark::kMillisecond);

/// The locations of a stored scene, each held by the scene.
std::vector<OvAttributeStruct*> locationsOf(const GroupAttribute& scene) {
    std::vector<OvAttributeStruct*> found{scene.handle()};
    for (std::size_t next = 0; next < found.size(); ++next) {
        const auto location = castAttribute<GroupAttribute>(Attribute::share(found[next]));
        const auto children = location.getChild<GroupAttribute>("c");
        for (std::int64_t i = 0; i < children.getNumberOfChildren(); ++i) {
            found.push_back(children.getChildByIndex(i).handle());
        }
    }
    return found;
}

/// All locations have the same type, stored once; each thread reads it at a part of them.
void ReadSharedType(benchmark::State& state) {
    static const std::string bytes = stored(AttributeForm::Binary, 100'000);
    static const Attribute scene = readAttributeBytes(bytes.data(), bytes.size()).attribute;
    static const auto locations = locationsOf(castAttribute<GroupAttribute>(scene));
    const OvAttributeSuite& suite = *Attribute::_attrSuite;
    const std::size_t part = locations.size() / static_cast<std::size_t>(state.threads());
    const std::size_t begin = part * static_cast<std::size_t>(state.thread_index());
    std::size_t next = begin;
    for (auto _ : state) {
        OvAttributeStruct* const type = suite.getChildByName(locations[next], "a.type", 6);
        benchmark::DoNotOptimize(type);
        suite.release(type);
        next = next + 1 == begin + part ? begin : next + 1;
    }
}
BENCHMARK(ReadSharedType)->Threads(1)->Threads(2)->UseRealTime();

}  // namespace
