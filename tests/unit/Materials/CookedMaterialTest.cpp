// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/FlattenedMaterial.h>
#include <OvSylvarProducers/ShadingNodeDescription.h>
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>

#include "support/OpTree.h"
#include "support/StaticScene.h"
#include "support/WrittenAttributes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace ovtest;
using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using testing::ElementsAre;

namespace {

const char* const kBrass = R"({
    "style": "network",
    "nodes": {
        "surface": {
            "name": "surface", "type": "standard_surface",
            "parameters": {"metalness": {"$float": 1}},
            "connections": {"base_color": "out@image"}
        },
        "image": {"name": "image", "type": "image", "parameters": {"file": "brass.tx"}}
    },
    "terminals": {"surface": "surface"}
})";

/// Two locations, one below the other; the op sets the material of the upper one.
GeometryProducerPtr assigned(const StaticScene& scene) {
    const GroupAttribute tree =
        OpTree()
            .op("scene", "scene", Args().set("tree", scene.group()))
            .op("brass",
                "assignMaterial",
                Args().set("paths", "/root/bell").set("material", written(kBrass)),
                {"scene"})
            .group();
    return CreateThreadAwareGeometryProducer(tree, "/root/bell/clapper");
}

GroupAttribute flattened(const GeometryProducerPtr& location) {
    EmptyFlattenedMaterialCache();
    GroupAttribute material = GetFlattenedMaterialAttr(location, {"surface"});
    EmptyFlattenedMaterialCache();
    return material;
}

}  // namespace

TEST(CookedMaterial, IsInheritedFromTheLocationThatItWasAssignedTo) {
    EXPECT_THAT(flattened(assigned(StaticScene().at("/root/bell/clapper"))), IsWritten(kBrass));
}

TEST(CookedMaterial, IsReadAsNodesWithParametersAndConnections) {
    ShadingNodeDescription::Nodes nodes;
    ShadingNodeDescription::GetShadingNetworkNodes(
        assigned(StaticScene().at("/root/bell/clapper"))->parent, nodes);
    ASSERT_EQ(2U, nodes.size());
    const auto& surface = nodes.at("surface");
    EXPECT_EQ("standard_surface", surface->getType());
    EXPECT_THAT(surface->getParameterNames(), ElementsAre("metalness"));
    EXPECT_EQ("image", surface->getConnection("base_color")->getConnectedNodeName());
    EXPECT_THAT(nodes.at("image")->getParameter("file"), IsWritten(R"("brass.tx")"));
}

TEST(CookedMaterial, LosesItsTerminalToAMaterialBelowIt) {
    const auto scene = StaticScene().set(
        "/root/bell/clapper",
        "material",
        written(R"({"style": "network", "nodes": {"n": {"name": "n", "type": "iron"}},
                    "terminals": {"surface": "n"}})"));
    EXPECT_THAT(flattened(assigned(scene)), IsWritten(R"({
                    "style": "network",
                    "nodes": {"n:0": {"name": "n:0", "type": "iron"}},
                    "terminals": {"surface": "n:0"}
                })"));
}
