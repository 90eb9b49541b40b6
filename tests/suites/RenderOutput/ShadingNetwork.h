// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/RenderOutputTest.h"

#include <string>

namespace ovtest {

/// A network of two nodes, of which one has parameters, one of them exposed, and inputs that the
/// other one drives. The keys of the nodes are not their names.
constexpr char kNetwork[] = R"({
    "style": "network",
    "parameters": {"tint": 5},
    "interface": {"tint": {"src": "k1.color"}},
    "nodes": {
        "k1": {"name": "shader", "type": "standard",
               "parameters": {"roughness": 0.5, "color": 1, "name": "x"},
               "connections": {"base:0": "out@image", "layer": {"coat": "alpha@image"},
                               "broken": "image"}},
        "k2": {"name": "image", "type": "file"},
        "k3": {"name": "typeless"}}})";

/// A test of the nodes of a network.
class ShadingNetworkTest : public RenderOutputTest {
protected:
    Network networkOf(const std::string& text) const {
        return Network(table.getShadingNetworkNodesFromAttr(written(text).handle()));
    }
    Node nodeIn(const Network& network, const char* name) const {
        return Node(table.getShadingNetworkNode(network.get(), name));
    }

    /// The node called "shader" of the network above.
    Node shader() const { return nodeIn(networkOf(kNetwork), "shader"); }

    Connection connectionOf(const Node& node, const char* name) const {
        return Connection(table.getShadingNodeConnection(node.get(), name));
    }
};

}  // namespace ovtest
