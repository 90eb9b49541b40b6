// SPDX-License-Identifier: Apache-2.0
#include "suites/RenderOutput/ShadingNetwork.h"

using ovtest::IsWritten;
using ovtest::Network;
using ovtest::Node;
using testing::ElementsAre;

namespace {

class ShadingNodeEntries : public ovtest::ShadingNetworkTest {
protected:
    Strings parameterNames(const Node& node) const {
        Strings names;
        for (unsigned i = 0; i < table.getShadingNodeParameterCount(node.get()); ++i) {
            names.emplace_back(table.getShadingNodeParameterName(node.get(), i));
        }
        return names;
    }
    Strings connectionNames(const Node& node) const {
        Strings names;
        for (unsigned i = 0; i < table.getShadingNodeConnectionCount(node.get()); ++i) {
            names.emplace_back(table.getShadingNodeConnectionName(node.get(), i));
        }
        return names;
    }
    Attribute parameter(const Node& node, const char* name) const {
        return take(table.getShadingNodeParameter(node.get(), name));
    }
};

}  // namespace

TEST_F(ShadingNodeEntries, TellNameAndType) {
    const Node node = shader();
    EXPECT_STREQ("shader", table.getShadingNodeName(node.get()));
    EXPECT_STREQ("standard", table.getShadingNodeType(node.get()));
    EXPECT_TRUE(table.isShadingNodeValid(node.get()));
}

TEST_F(ShadingNodeEntries, TellTheParametersInTheirOrder) {
    EXPECT_THAT(parameterNames(shader()), ElementsAre("roughness", "color", "name"));
    EXPECT_THAT(parameterNames(nodeIn(networkOf(ovtest::kNetwork), "image")), ElementsAre());
}

TEST_F(ShadingNodeEntries, GiveTheParameterOfAName) {
    const Node node = shader();
    EXPECT_THAT(parameter(node, "roughness"), IsWritten("0.5"));
    EXPECT_THAT(parameter(node, "name"), IsWritten(R"("x")"));
}

TEST_F(ShadingNodeEntries, GiveTheValueThatAnExposedParameterHas) {
    EXPECT_THAT(parameter(shader(), "color"), IsWritten("5"));
}

TEST_F(ShadingNodeEntries, GiveNullForAParameterThatIsNotThere) {
    EXPECT_EQ(nullptr, table.getShadingNodeParameter(shader().get(), "none"));
    EXPECT_EQ(nullptr, table.getShadingNodeParameter(shader().get(), ""));
}

TEST_F(ShadingNodeEntries, GiveAParameterThatOutlivesItsNode) {
    const Attribute roughness = parameter(shader(), "roughness");
    EXPECT_THAT(roughness, IsWritten("0.5"));
}

TEST_F(ShadingNodeEntries, TellTheConnectionsInTheirOrderByTheirFullNames) {
    EXPECT_THAT(connectionNames(shader()), ElementsAre("base:0", "layer.coat"));
    EXPECT_THAT(connectionNames(nodeIn(networkOf(ovtest::kNetwork), "image")), ElementsAre());
}

TEST_F(ShadingNodeEntries, GiveNullForAConnectionThatIsNotThere) {
    const Node node = shader();
    for (const char* const name : {"none", "", "base", "broken", "layer", "coat"}) {
        EXPECT_EQ(nullptr, table.getShadingNodeConnection(node.get(), name)) << name;
    }
}

TEST_F(ShadingNodeEntries, MakeANewHandleOfOneReferenceOnTheSameNodeEachTime) {
    const Network network = networkOf(ovtest::kNetwork);
    const Node one = nodeIn(network, "shader");
    const Node other = nodeIn(network, "shader");
    ASSERT_NE(nullptr, one);
    EXPECT_NE(one, other);
    EXPECT_EQ(1, ovtest::countIn(one.get()));
    EXPECT_EQ(1, ovtest::countIn(other.get()));
    EXPECT_EQ(table.getShadingNodeName(one.get()), table.getShadingNodeName(other.get()));
    EXPECT_EQ(table.getShadingNodeParameterName(one.get(), 0),
              table.getShadingNodeParameterName(other.get(), 0));
}

TEST_F(ShadingNodeEntries, CountTheReferencesOfEachHandleAlone) {
    const Network network = networkOf(ovtest::kNetwork);
    const Node one = nodeIn(network, "shader");
    const Node other = nodeIn(network, "shader");
    table.retainShadingNode(one.get());
    table.retainShadingNode(one.get());
    EXPECT_EQ(3, ovtest::countIn(one.get()));
    EXPECT_EQ(1, ovtest::countIn(other.get()));
    table.releaseShadingNode(one.get());
    EXPECT_EQ(2, ovtest::countIn(one.get()));
    table.releaseShadingNode(one.get());
    EXPECT_STREQ("shader", table.getShadingNodeName(one.get()));
}

TEST_F(ShadingNodeEntries, KeepTheirTextsAsLongAsAnyHandleOrTheNetworkLives) {
    Network network = networkOf(ovtest::kNetwork);
    Node one = nodeIn(network, "shader");
    const char* const name = table.getShadingNodeName(one.get());
    const char* const type = table.getShadingNodeType(one.get());
    const char* const parameter = table.getShadingNodeParameterName(one.get(), 1);
    const char* const connection = table.getShadingNodeConnectionName(one.get(), 1);
    one.reset();
    EXPECT_STREQ("shader", name);
    const Node other = nodeIn(network, "shader");
    network.reset();
    EXPECT_STREQ("shader", name);
    EXPECT_STREQ("standard", type);
    EXPECT_STREQ("color", parameter);
    EXPECT_STREQ("layer.coat", connection);
    EXPECT_EQ(name, table.getShadingNodeName(other.get()));
}
