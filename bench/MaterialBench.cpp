// SPDX-License-Identifier: Apache-2.0
// Materials: those that a location inherits, merged and remembered, and the nodes of a network.
#include <OvSylvarProducers/FlattenedMaterial.h>
#include <OvSylvarProducers/ShadingNodeDescription.h>
#include <SylvarPlatform/DataAttribute.h>

#include "CountAllocations.h"
#include "support/StaticScene.h"

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;

namespace {

const std::vector<std::string> kTerminals = {"surface", "displacement"};

/// Each node is driven by the next one; in the form in which importers and ops make networks.
GroupAttribute network(int nodes, const std::string& terminal) {
    GroupBuilder list(GroupBuilder::Mode::Flat);
    for (int i = 0; i < nodes; ++i) {
        const std::string next = "node" + std::to_string((i + 1) % nodes);
        const GroupAttribute parameters({{"base", FloatAttribute(0.5F)},
                                         {"base_color", FloatAttribute({0.1F, 0.2F, 0.3F}, 3)},
                                         {"file", StringAttribute("textures/wood.tx")}},
                                        false);
        const GroupAttribute connections(
            {{"in1", StringAttribute("out@" + next)}, {"in2", StringAttribute("r@" + next)}},
            false);
        const std::string name = "node" + std::to_string(i);
        list.set(name,
                 GroupAttribute({{"name", StringAttribute(name)},
                                 {"type", StringAttribute("multiply")},
                                 {"parameters", parameters},
                                 {"connections", connections}},
                                false));
    }
    return GroupBuilder()
        .set("style", StringAttribute("network"))
        .set("nodes", list.build())
        .set("terminals." + terminal, StringAttribute("node0"))
        .build();
}

/// Locations at depth 4, which inherit the only material there is, that of /root/world.
std::vector<GeometryProducerPtr> inheritingLeaves(int count, const GroupAttribute& material) {
    ovtest::StaticScene scene;
    scene.set("/root/world", "material", material);
    for (int i = 0; i < count; ++i) {
        scene.at("/root/world/house/door/leaf" + std::to_string(i));
    }
    const GeometryProducerPtr door = scene.open("/root/world/house/door");
    std::vector<GeometryProducerPtr> leaves;
    for (int i = 0; i < count; ++i) {
        leaves.push_back(door->getChildByName(("leaf" + std::to_string(i)).c_str(), false));
    }
    return leaves;
}

/// The first time that each of a thousand leaves is asked for.
void flattenLeaves(benchmark::State& state, const GroupAttribute& material) {
    const std::vector<GeometryProducerPtr> leaves = inheritingLeaves(1000, material);
    EmptyFlattenedMaterialCache();
    const ovbench::CountAllocations count(state);
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(GetFlattenedMaterialAttr(leaves[next], kTerminals).handle());
        if (++next == leaves.size()) {
            state.PauseTiming();
            EmptyFlattenedMaterialCache();
            next = 0;
            state.ResumeTiming();
        }
    }
    EmptyFlattenedMaterialCache();
}

void FlattenedLeaf(benchmark::State& state) {
    flattenLeaves(state, network(20, "surface"));
}
BENCHMARK(FlattenedLeaf);

/// The same with a network that is cut.
void MinimizedLeaf(benchmark::State& state) {
    flattenLeaves(state,
                  GroupBuilder()
                      .update(network(20, "surface"))
                      .set("info.label", StringAttribute("wood"))
                      .set("interface.gloss.src", StringAttribute("node0.base"))
                      .set("interface.gloss.label", StringAttribute("Gloss"))
                      .set("parameters.gloss", FloatAttribute(0.25F))
                      .build());
}
BENCHMARK(MinimizedLeaf);

void MergedNetworks(benchmark::State& state) {
    const std::vector<GroupAttribute> materials = {network(20, "surface"),
                                                   network(20, "displacement")};
    const ovbench::CountAllocations count(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(GetFlattenedMaterialAttr(materials, kTerminals).handle());
    }
}
BENCHMARK(MergedNetworks);

/// One leaf again and again, among a thousand that are remembered.
void RememberedLeaf(benchmark::State& state) {
    const std::vector<GeometryProducerPtr> leaves = inheritingLeaves(1000, network(20, "surface"));
    for (const GeometryProducerPtr& leaf : leaves) {
        GetFlattenedMaterialAttr(leaf, kTerminals);
    }
    const ovbench::CountAllocations count(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(GetFlattenedMaterialAttr(leaves[500], kTerminals).handle());
    }
    EmptyFlattenedMaterialCache();
}
BENCHMARK(RememberedLeaf);

void ShadingNetworkNodes(benchmark::State& state) {
    const GroupAttribute material = network(20, "surface");
    ShadingNodeDescription::Nodes nodes;
    const ovbench::CountAllocations count(state);
    for (auto _ : state) {
        ShadingNodeDescription::GetShadingNetworkNodes(material, nodes);
        benchmark::DoNotOptimize(nodes.size());
    }
}
BENCHMARK(ShadingNetworkNodes);

}  // namespace
