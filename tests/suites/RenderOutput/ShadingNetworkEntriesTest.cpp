// SPDX-License-Identifier: Apache-2.0
#include "suites/RenderOutput/ShadingNetwork.h"

using ovtest::Network;
using ovtest::Node;
using ovtest::StaticScene;
using ovtest::written;

namespace {

class ShadingNetworkEntries : public ovtest::ShadingNetworkTest {
protected:
    Network networkAt(Handle location) const {
        return Network(table.getShadingNetworkNodesFromIterator(location));
    }
};

}  // namespace

TEST_F(ShadingNetworkEntries, FindNodesByTheirNamesAndNotByTheirKeys) {
    const Network network = networkOf(ovtest::kNetwork);
    ASSERT_NE(nullptr, network);
    EXPECT_STREQ("shader", table.getShadingNodeName(nodeIn(network, "shader").get()));
    EXPECT_STREQ("image", table.getShadingNodeName(nodeIn(network, "image").get()));
    for (const char* const name : {"k1", "k2", "none", "", "Shader", "typeless", "k3"}) {
        EXPECT_EQ(nullptr, nodeIn(network, name)) << name;
    }
}

TEST_F(ShadingNetworkEntries, GiveNullForAnAttributeThatIsNoGroup) {
    EXPECT_EQ(nullptr, table.getShadingNetworkNodesFromAttr(nullptr));
    for (const char* const network : {"3", "2.5", R"("network")", R"({"$float": []})"}) {
        EXPECT_EQ(nullptr, networkOf(network)) << network;
    }
}

TEST_F(ShadingNetworkEntries, GiveANetworkWithoutNodesForAGroupWithoutAny) {
    for (const char* const text : {"{}", R"({"nodes": {}})", R"({"nodes": {"a": 3}})"}) {
        const Network network = networkOf(text);
        EXPECT_NE(nullptr, network) << text;
        EXPECT_EQ(nullptr, nodeIn(network, "a")) << text;
    }
}

TEST_F(ShadingNetworkEntries, AreOfTheMaterialOfTheVeryLocation) {
    StaticScene scene;
    scene.set("/root/a", "material", written(ovtest::kNetwork)).at("/root/a/b");
    EXPECT_NE(nullptr, nodeIn(networkAt(at(scene, "/root/a")), "shader"));
    EXPECT_EQ(nullptr, nodeIn(networkAt(at(scene, "/root/a/b")), "shader"));
}

TEST_F(ShadingNetworkEntries, GiveANewNetworkWithoutNodesWhereTheLocationHasNone) {
    StaticScene scene;
    scene.set("/root/text", "material", "network")
        .set("/root/group", "material", written("{}"))
        .at("/root/bare");
    for (const char* const path : {"/root/bare", "/root/text", "/root/group"}) {
        const Handle location = at(scene, path);
        const Network one = networkAt(location);
        const Network other = networkAt(location);
        EXPECT_NE(nullptr, one) << path;
        EXPECT_NE(one, other) << path;
        EXPECT_EQ(nullptr, nodeIn(one, "shader")) << path;
    }
}

TEST_F(ShadingNetworkEntries, LetANodeOutliveItsNetworkAndItsScene) {
    Node node;
    {
        ovtest::Iterators gone;
        StaticScene scene;
        scene.set("/root", "material", written(ovtest::kNetwork));
        const Handle root = gone.step(SYLVAR::OvGeometryProducerToHandle(scene.open("/root")));
        node = nodeIn(networkAt(root), "shader");
    }
    EXPECT_STREQ("standard", table.getShadingNodeType(node.get()));
}
