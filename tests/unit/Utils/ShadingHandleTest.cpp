// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ShadingNodeDescription.h>

#include "suites/RenderOutput/ShadingNetwork.h"

#include <map>
#include <string>

using ovtest::Connection;
using ovtest::Network;
using ovtest::Node;

namespace {

using NodePtr = boost::shared_ptr<SYLVAR::ShadingNodeDescription>;
using ConnectionPtr = boost::shared_ptr<SYLVAR::ShadingNodeConnectionDescription>;
using Nodes = std::map<std::string, NodePtr>;

template <class Pointer>
struct Record {
    int count;
    Pointer object;
};

const Nodes& nodesOf(const Network& network) {
    return *reinterpret_cast<const Nodes*>(network.get());
}
Record<NodePtr>& recordOf(ShadingNodeDescriptionStruct* node) {
    return *reinterpret_cast<Record<NodePtr>*>(node);
}
Record<ConnectionPtr>& recordOf(ShadingNodeConnectionDescriptionStruct* connection) {
    return *reinterpret_cast<Record<ConnectionPtr>*>(connection);
}

class ShadingHandle : public ovtest::ShadingNetworkTest {
protected:
    const Network network = networkOf(ovtest::kNetwork);
    const NodePtr shader = nodesOf(network).at("shader");
    const ConnectionPtr base = shader->getConnection("base:0");
    const long nodeHolders = shader.use_count();
    const long connectionHolders = base.use_count();
};

}  // namespace

TEST_F(ShadingHandle, OfANetworkIsAMapOfNamesToNodes) {
    EXPECT_THAT(nodesOf(network), testing::SizeIs(2));
    EXPECT_EQ("standard", nodesOf(network).at("shader")->getType());
    EXPECT_EQ("file", nodesOf(network).at("image")->getType());
}

TEST_F(ShadingHandle, IsARecordOfACountAndThenTheNode) {
    const Node node = nodeIn(network, "shader");
    EXPECT_EQ(1, recordOf(node.get()).count);
    EXPECT_EQ(shader, recordOf(node.get()).object);
}

TEST_F(ShadingHandle, IsARecordOfACountAndThenTheConnection) {
    const Connection connection = connectionOf(nodeIn(network, "shader"), "base:0");
    EXPECT_EQ(1, recordOf(connection.get()).count);
    EXPECT_EQ(base, recordOf(connection.get()).object);
}

TEST_F(ShadingHandle, LetsItsNodeGoWithItsLastReference) {
    ShadingNodeDescriptionStruct* const node = table.getShadingNetworkNode(network.get(), "shader");
    table.retainShadingNode(node);
    table.releaseShadingNode(node);
    EXPECT_EQ(nodeHolders + 1, shader.use_count());
    table.releaseShadingNode(node);
    EXPECT_EQ(nodeHolders, shader.use_count());
}

TEST_F(ShadingHandle, LetsItsConnectionGoWithItsLastReference) {
    const Node node = nodeIn(network, "shader");
    ShadingNodeConnectionDescriptionStruct* const connection =
        table.getShadingNodeConnection(node.get(), "base:0");
    table.retainShadingNodeConnection(connection);
    table.releaseShadingNodeConnection(connection);
    EXPECT_EQ(connectionHolders + 1, base.use_count());
    table.releaseShadingNodeConnection(connection);
    EXPECT_EQ(connectionHolders, base.use_count());
}

TEST_F(ShadingHandle, LetsItsObjectGoAlsoWhenTheCountFallsBelowZero) {
    ShadingNodeDescriptionStruct* const node = table.getShadingNetworkNode(network.get(), "shader");
    ShadingNodeConnectionDescriptionStruct* const connection =
        table.getShadingNodeConnection(node, "base:0");
    recordOf(connection).count = -3;
    table.releaseShadingNodeConnection(connection);
    EXPECT_EQ(connectionHolders, base.use_count());
    recordOf(node).count = -3;
    table.releaseShadingNode(node);
    EXPECT_EQ(nodeHolders, shader.use_count());
}

TEST_F(ShadingHandle, OfANetworkLetsTheNodesGoThatNobodyElseHolds) {
    Network gone = networkOf(ovtest::kNetwork);
    const NodePtr image = nodesOf(gone).at("image");
    const Node kept = nodeIn(gone, "image");
    ASSERT_EQ(3, image.use_count());
    gone.reset();
    EXPECT_EQ(2, image.use_count());
    EXPECT_EQ("image", image->getName());
}
