// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ShadingNodeDescription.h>

#include "support/WrittenAttributes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

using namespace ovtest;
using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Connection = ShadingNodeConnectionDescription;

Connection read(const std::string& fullName, const std::string& source) {
    return Connection(fullName, StringAttribute(source));
}

ShadingNodeDescription nodeWith(const std::string& connections) {
    return ShadingNodeDescription(
        writtenGroup(R"({"name": "a", "type": "t", "connections": )" + connections + "}"), nullptr);
}

}  // namespace

TEST(ShadingConnection, HasTheInputTheNodeAndThePort) {
    const Connection connection = read("in", "out@node");
    EXPECT_TRUE(connection.isValid());
    EXPECT_EQ("in", connection.getName());
    EXPECT_EQ("node", connection.getConnectedNodeName());
    EXPECT_EQ("out", connection.getConnectedPortName());
}

TEST(ShadingConnection, TakesBlanksFromBothEndsOfBothPieces) {
    const Connection connection = read("in", " \t out r \n@\r no de\v\f ");
    EXPECT_EQ("no de", connection.getConnectedNodeName());
    EXPECT_EQ("out r", connection.getConnectedPortName());
}

TEST(ShadingConnection, IsNotValidWithAnythingButOneAt) {
    for (const char* const source : {"", "node", "out@node@", "a@b@c", "@@"}) {
        SCOPED_TRACE(source);
        const Connection connection = read("in", source);
        EXPECT_FALSE(connection.isValid());
        EXPECT_EQ("in", connection.getName());
        EXPECT_EQ("", connection.getConnectedNodeName());
        EXPECT_EQ("", connection.getConnectedPortName());
    }
}

TEST(ShadingConnection, IsNotValidWhenAPieceIsBlank) {
    EXPECT_FALSE(read("in", "@node").isValid());
    EXPECT_FALSE(read("in", "out@").isValid());
    EXPECT_FALSE(read("in", "out@ \t").isValid());
    EXPECT_EQ("node", read("in", " @node").getConnectedNodeName());
    EXPECT_EQ("out", read("in", "out@ ").getConnectedPortName());
}

TEST(ShadingConnection, IsNotValidWithoutASource) {
    const Connection connection("in:2", StringAttribute());
    EXPECT_FALSE(connection.isValid());
    EXPECT_EQ("in", connection.getName());
}

TEST(ShadingConnection, LosesWhatStandsBehindTheLastColonOfItsName) {
    EXPECT_EQ("in", read("in:0", "out@b").getName());
    EXPECT_EQ("in:0", read("in:0:12", "out@b").getName());
    EXPECT_EQ("in", read("in:", "out@b").getName());
    EXPECT_EQ("in", read("in:0.x", "out@b").getName());
}

TEST(ShadingConnection, IsNotValidWhenItsNameBeginsWithItsLastColon) {
    EXPECT_EQ("", read(":0", "out@b").getName());
    EXPECT_FALSE(read(":0", "out@b").isValid());
    EXPECT_FALSE(read("", "out@b").isValid());
}

TEST(ShadingConnection, OfAMergedNetworkLeadsToTheRenamedNode) {
    EXPECT_EQ("node:0", read("in", "out@node:0").getConnectedNodeName());
}

TEST(ShadingConnection, TakesTheFirstValueOfTheSampleNearestTimeZero) {
    const Connection connection(
        "in",
        castAttribute<StringAttribute>(
            written(R"({"$string": [["x@y", "v@w"], ["out@b", "x@y"]], "$times": [-2, 1]})")));
    EXPECT_EQ("b", connection.getConnectedNodeName());
}

TEST(ShadingConnections, AreListedInTheirOrder) {
    const ShadingNodeDescription node = nodeWith(R"({"z": "out@b", "y": "r@c"})");
    EXPECT_THAT(node.getConnectionNames(), ElementsAre("z", "y"));
    EXPECT_EQ("b", node.getConnection("z")->getConnectedNodeName());
    EXPECT_EQ("r", node.getConnection("y")->getConnectedPortName());
    EXPECT_FALSE(node.getConnection("absent"));
}

TEST(ShadingConnections, AreOneObjectForAllThatAsk) {
    const ShadingNodeDescription node = nodeWith(R"({"in": "out@b"})");
    EXPECT_EQ(node.getConnection("in"), node.getConnection("in"));
}

TEST(ShadingConnections, ThatAreNotValidAreNotListed) {
    const ShadingNodeDescription node = nodeWith(
        R"({"a": "b", "b": "a@b@c", "c": 1, "d": null, "e": {"$string": []}, ":0": "out@b", "g": {}})");
    EXPECT_THAT(node.getConnectionNames(), IsEmpty());
    EXPECT_FALSE(node.getConnection("a"));
}

TEST(ShadingConnections, AreNoneWhenTheyAreNoGroup) {
    EXPECT_THAT(nodeWith(R"("out@b")").getConnectionNames(), IsEmpty());
}

TEST(ShadingConnections, AreFoundByTheirFullNameWhichKeepsTheSuffix) {
    const ShadingNodeDescription node = nodeWith(R"({"in:0": "out@b"})");
    EXPECT_THAT(node.getConnectionNames(), ElementsAre("in:0"));
    EXPECT_EQ("in", node.getConnection("in:0")->getName());
    EXPECT_FALSE(node.getConnection("in"));
}

TEST(ShadingConnections, InAGroupAreNamedWithIt) {
    const ShadingNodeDescription node =
        nodeWith(R"({"color": {"r": "out@b", "g:1": "out@c", "no": 1}, "in": "out@d"})");
    EXPECT_THAT(node.getConnectionNames(), ElementsAre("color.r", "color.g:1", "in"));
    EXPECT_FALSE(node.getConnection("color"));
    EXPECT_EQ("color.r", node.getConnection("color.r")->getName());
    EXPECT_EQ("color.g", node.getConnection("color.g:1")->getName());
}

TEST(ShadingConnections, DeeperThanTwoLevelsAreNotFound) {
    const ShadingNodeDescription node = nodeWith(R"({"a": {"b": {"c": "out@n"}, "d": "out@n"}})");
    EXPECT_THAT(node.getConnectionNames(), ElementsAre("a.d"));
}

TEST(ShadingConnections, AreFoundDeeperInAGroupThatRepeatsItsOwnPath) {
    const ShadingNodeDescription node =
        nodeWith(R"({"a": {"b": {"lost": "out@m"}, "a": {"b": {"c": "out@n"}}}})");
    EXPECT_THAT(node.getConnectionNames(), ElementsAre("a.b.c"));
    EXPECT_EQ("n", node.getConnection("a.b.c")->getConnectedNodeName());
}

TEST(ShadingConnections, InAGroupWithADotInItsNameAreNotFoundThere) {
    const ShadingNodeDescription node = nodeWith(R"({
        "a.b": {"lost": "out@m"}, "a": {"b": {"c": "out@n"}}, "x.y": "out@o"
    })");
    EXPECT_THAT(node.getConnectionNames(), ElementsAre("a.b.c", "x.y"));
}

TEST(ShadingConnections, OfOneFullNameAreListedTwiceAndTheLaterOneCounts) {
    const ShadingNodeDescription node =
        nodeWith(R"({"a.b": "out@flat", "a": {"b": "out@nested"}})");
    EXPECT_THAT(node.getConnectionNames(), ElementsAre("a.b", "a.b"));
    EXPECT_EQ("nested", node.getConnection("a.b")->getConnectedNodeName());
}
