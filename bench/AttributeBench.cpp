// SPDX-License-Identifier: Apache-2.0
// Making, finding, reading and hashing attributes.
#include <SylvarPlatform/GroupBuilder.h>
#include <SylvarPlatform/SampleAccessor.h>

#include "CountAllocations.h"

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvAttribute;
using ovbench::CountAllocations;

std::vector<std::string> names(std::int64_t count) {
    std::vector<std::string> result;
    for (std::int64_t i = 0; i < count; ++i) {
        result.push_back("attribute" + std::to_string(i));
    }
    return result;
}

GroupAttribute groupOf(std::int64_t count) {
    std::vector<GroupAttribute::Child> children;
    for (const std::string& name : names(count)) {
        children.emplace_back(name, DoubleAttribute(static_cast<double>(children.size())));
    }
    return GroupAttribute(children, false);
}

void FindChild(benchmark::State& state) {
    const GroupAttribute group = groupOf(state.range(0));
    const std::vector<std::string> all = names(state.range(0));
    std::size_t next = 0;
    const CountAllocations count(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(group.getChildByName(all[next]));
        next = next + 1 == all.size() ? 0 : next + 1;
    }
}
BENCHMARK(FindChild)->Arg(8)->Arg(1000);

void FindDottedChild(benchmark::State& state) {
    const GroupAttribute group(std::vector<GroupAttribute::Child>{{"geometry", groupOf(8)}}, false);
    const CountAllocations count(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(group.getChildByName("geometry.attribute5"));
    }
}
BENCHMARK(FindDottedChild);

void ReadOneDouble(benchmark::State& state) {
    const DoubleAttribute attribute(2.5);
    OvAttributeStruct* const handle = attribute.handle();
    const OvAttributeSuite& suite = *Attribute::_attrSuite;
    const CountAllocations count(state);
    for (auto _ : state) {
        double value = 0.0;
        suite.getNearestDouble(&handle, 0, 0.0F, &value);
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(ReadOneDouble);

void ReadStringList(benchmark::State& state) {
    const StringAttribute attribute(names(state.range(0)));
    const CountAllocations count(state);
    for (auto _ : state) {
        const SampleAccessor<StringAttribute> samples(attribute, 0.0F);
        for (const char* const name : samples) {
            benchmark::DoNotOptimize(name);
        }
    }
}
BENCHMARK(ReadStringList)->Arg(1)->Arg(32);

void RetainAndRelease(benchmark::State& state) {
    const DoubleAttribute attribute(2.5);
    for (auto _ : state) {
        benchmark::DoNotOptimize(Attribute(attribute));
    }
}
BENCHMARK(RetainAndRelease);

void MakeOneDouble(benchmark::State& state) {
    const CountAllocations count(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(DoubleAttribute(2.5));
    }
}
BENCHMARK(MakeOneDouble);

void MakeOneString(benchmark::State& state) {
    const CountAllocations count(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(StringAttribute("mesh"));
    }
}
BENCHMARK(MakeOneString);

/// `ofKnownNames`: another group with the same names is there already.
void makeGroup(benchmark::State& state, bool ofKnownNames) {
    const GroupAttribute group = groupOf(8);
    std::vector<std::string> all = names(8);
    std::vector<OvAttributeStruct*> children;
    for (std::int64_t i = 0; i < 8; ++i) {
        children.push_back(group.getChildByIndex(i).handle());
    }
    all[0] = ofKnownNames ? all[0] : "another";
    std::vector<const char*> pointers;
    for (const std::string& name : all) {
        pointers.push_back(name.c_str());
    }
    const OvAttributeSuite& suite = *Attribute::_attrSuite;
    const CountAllocations count(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            Attribute::adopt(suite.createGroup(pointers.data(), children.data(), 8, 0)));
    }
}

void MakeGroupOfKnownNames(benchmark::State& state) {
    makeGroup(state, true);
}
BENCHMARK(MakeGroupOfKnownNames);

void MakeGroupOfNewNames(benchmark::State& state) {
    makeGroup(state, false);
}
BENCHMARK(MakeGroupOfNewNames);

void BuildGroup(benchmark::State& state) {
    const GroupAttribute group = groupOf(8);
    const std::vector<std::string> all = names(8);
    const CountAllocations count(state);
    for (auto _ : state) {
        GroupBuilder builder(GroupBuilder::Mode::Flat);
        for (const std::string& name : all) {
            builder.set(name, group);
        }
        benchmark::DoNotOptimize(builder.build());
    }
}
BENCHMARK(BuildGroup);

/// Each round hashes attributes that do not know their hash yet; only that is timed.
void HashLargeArray(benchmark::State& state) {
    constexpr std::int64_t kBytesOfARound = std::int64_t{1} << 25;
    const std::vector<float> values(static_cast<std::size_t>(state.range(0)) / sizeof(float), 1.5F);
    std::vector<FloatAttribute> attributes(
        static_cast<std::size_t>(kBytesOfARound / state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        for (FloatAttribute& attribute : attributes) {
            attribute = FloatAttribute(values, 3);
        }
        state.ResumeTiming();
        for (const FloatAttribute& attribute : attributes) {
            benchmark::DoNotOptimize(attribute.getHash());
        }
    }
    state.SetBytesProcessed(state.iterations() * kBytesOfARound);
}
BENCHMARK(HashLargeArray)->Arg(1 << 16)->Arg(1 << 22);

void HashKnownGroup(benchmark::State& state) {
    const GroupAttribute group = groupOf(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(group.getHash());
    }
}
BENCHMARK(HashKnownGroup)->Arg(8)->Arg(1000);

}  // namespace
