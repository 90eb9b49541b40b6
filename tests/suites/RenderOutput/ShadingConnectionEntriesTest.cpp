// SPDX-License-Identifier: Apache-2.0
#include "suites/RenderOutput/ShadingNetwork.h"

using ovtest::Connection;
using ovtest::Network;
using ovtest::Node;

namespace {

class ShadingConnectionEntries : public ovtest::ShadingNetworkTest {};

}  // namespace

TEST_F(ShadingConnectionEntries, TellTheInputTheNodeAndThePort) {
    const Connection base = connectionOf(shader(), "base:0");
    EXPECT_STREQ("base", table.getConnectionName(base.get()));
    EXPECT_STREQ("image", table.getConnectionNodeName(base.get()));
    EXPECT_STREQ("out", table.getConnectionPortName(base.get()));
    EXPECT_TRUE(table.isConnectionValid(base.get()));
}

TEST_F(ShadingConnectionEntries, TellOfAnInputWithinAnother) {
    const Connection coat = connectionOf(shader(), "layer.coat");
    EXPECT_STREQ("layer.coat", table.getConnectionName(coat.get()));
    EXPECT_STREQ("image", table.getConnectionNodeName(coat.get()));
    EXPECT_STREQ("alpha", table.getConnectionPortName(coat.get()));
}

TEST_F(ShadingConnectionEntries, MakeANewHandleOfOneReferenceOnTheSameConnectionEachTime) {
    const Node node = shader();
    const Connection one = connectionOf(node, "base:0");
    const Connection other = connectionOf(node, "base:0");
    ASSERT_NE(nullptr, one);
    EXPECT_NE(one, other);
    EXPECT_EQ(1, ovtest::countIn(one.get()));
    EXPECT_EQ(1, ovtest::countIn(other.get()));
    EXPECT_EQ(table.getConnectionName(one.get()), table.getConnectionName(other.get()));
}

TEST_F(ShadingConnectionEntries, CountTheReferencesOfEachHandleAlone) {
    const Node node = shader();
    const Connection one = connectionOf(node, "base:0");
    const Connection other = connectionOf(node, "base:0");
    table.retainShadingNodeConnection(one.get());
    table.retainShadingNodeConnection(one.get());
    EXPECT_EQ(3, ovtest::countIn(one.get()));
    EXPECT_EQ(1, ovtest::countIn(other.get()));
    table.releaseShadingNodeConnection(one.get());
    EXPECT_EQ(2, ovtest::countIn(one.get()));
    table.releaseShadingNodeConnection(one.get());
    EXPECT_STREQ("base", table.getConnectionName(one.get()));
}

TEST_F(ShadingConnectionEntries, LetAConnectionOutliveItsNodeAndItsNetwork) {
    const Connection base = connectionOf(shader(), "base:0");
    EXPECT_STREQ("image", table.getConnectionNodeName(base.get()));
}

TEST_F(ShadingConnectionEntries, KeepTheirTextsAsLongAsAnyHandleLives) {
    Connection one;
    Connection other;
    {
        const Node node = shader();
        one = connectionOf(node, "base:0");
        other = connectionOf(node, "base:0");
    }
    const char* const name = table.getConnectionName(one.get());
    const char* const node = table.getConnectionNodeName(one.get());
    const char* const port = table.getConnectionPortName(one.get());
    one.reset();
    EXPECT_STREQ("base", name);
    EXPECT_STREQ("image", node);
    EXPECT_STREQ("out", port);
    EXPECT_EQ(name, table.getConnectionName(other.get()));
}
