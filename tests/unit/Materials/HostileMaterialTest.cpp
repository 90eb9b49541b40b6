// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ShadingNodeDescription.h>
#include <OvSylvarProducers/TextureAttributes.h>

#include "support/FakeProducer.h"
#include "support/RandomAttribute.h"
#include "support/SmallStack.h"
#include "unit/Materials/Materials.h"

#include <set>
#include <vector>

using namespace ovtest;
using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;

namespace {

constexpr int kDeep = 100'000;

GroupAttribute networkOf(const Attribute& part) {
    return GroupAttribute(
        {{"style", StringAttribute("network")},
         {"nodes", part},
         {"interface", part},
         {"parameters", part},
         {"terminals", GroupAttribute({{"surface", StringAttribute("a")}}, false)},
         {"part", part}},
        false);
}

GroupAttribute nodeOf(const Attribute& connections) {
    return GroupAttribute({{"name", StringAttribute("a")},
                           {"type", StringAttribute("t")},
                           {"parameters", connections},
                           {"connections", connections}},
                          false);
}

/// All that these functions do with a group at any of its places.
void readEverywhere(const Attribute& part) {
    const GroupAttribute node = nodeOf(part);
    ShadingNodeDescription::Nodes nodes;
    for (const GroupAttribute& material :
         {networkOf(part),
          networkOf(GroupAttribute({{"a", node}, {"b", part}}, false)),
          castAttribute<GroupAttribute>(part)}) {
        GetFlattenedMaterialAttr({material, material, GroupAttribute()}, {"surface", "a.a.a"});
        MinimizeResolvedMaterialAttr(material);
        ConvertTexturesToArbitraryAttr(material);
        ShadingNodeDescription::GetShadingNetworkNodes(material, nodes);
    }
}

/// A group of which each level is in all three children of the one above: the path that a walk has
/// taken leads on from wherever it is.
GroupAttribute selfSimilar(int levels) {
    GroupAttribute inner({{"in", StringAttribute("out@b")}}, false);
    for (int i = 0; i < levels; ++i) {
        inner = GroupAttribute({{"a", inner}, {"b", inner}, {"c", inner}}, false);
    }
    return inner;
}

}  // namespace

TEST(HostileMaterial, MayBeDeeperThanAnyStack) {
    const Attribute deep = deepAttribute(kDeep);
    onSmallStack([&] { readEverywhere(deep); });
}

TEST(HostileMaterial, MayBeWide) {
    readEverywhere(wideAttribute(kDeep));
}

TEST(HostileMaterial, MayShareItsChildrenMoreOftenThanCanBeCounted) {
    readEverywhere(doublingAttribute(100));
}

TEST(HostileMaterial, MayHaveConnectionsThatRepeatTheirOwnPathAgainAndAgain) {
    readEverywhere(selfSimilar(1000));
}

TEST(HostileMaterial, MayHaveConnectionsInOneLongLineThatRepeatsItself) {
    GroupAttribute line({{"in", StringAttribute("out@b")}}, false);
    for (int i = 0; i < kDeep; ++i) {
        line = GroupAttribute({{"a", line}}, false);
    }
    onSmallStack([&] { readEverywhere(line); });
}

TEST(HostileMaterial, MayBeAnything) {
    for (std::uint64_t seed = 0; seed < 300; ++seed) {
        RandomAttribute random(seed);
        readEverywhere(random.group(4));
    }
}

TEST(HostileMaterial, MayHaveAnyNumberOfTerminals) {
    std::vector<GroupAttribute::Child> driven;
    Names terminals;
    for (int i = 0; i < 2000; ++i) {
        terminals.push_back("t" + std::to_string(i));
        driven.emplace_back(terminals.back(), StringAttribute("a"));
    }
    const GroupAttribute network(
        {{"style", StringAttribute("network")}, {"terminals", GroupAttribute(driven, false)}},
        false);
    const GroupAttribute result =
        GetFlattenedMaterialAttr({GroupAttribute(), network, network}, terminals);
    EXPECT_EQ(2000, result.getChild<GroupAttribute>("terminals").getNumberOfChildren());
    EXPECT_EQ("a:1", result.getChild<StringAttribute>("terminals.t1999").getValue(""));
}

TEST(HostileMaterial, MayBeInheritedThroughAChainOfAnyLength) {
    EmptyFlattenedMaterialCache();
    const Attribute material = written(R"({"surfaceShader": "paint"})");
    GeometryProducerPtr location;
    std::string path;
    for (int i = 0; i < 20'000; ++i) {
        path = "/" + std::to_string(i);
        const boost::intrusive_ptr<FakeProducer> next(new FakeProducer(path, location));
        next->set("material", material);
        location = next;
    }
    onSmallStack([&] {
        EXPECT_THAT(GetFlattenedMaterialAttr(location, {"surface"}),
                    IsWritten(R"({"surfaceShader": "paint"})"));
    });
    EmptyFlattenedMaterialCache();
}
