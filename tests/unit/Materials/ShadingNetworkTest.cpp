// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/FlattenedMaterial.h>
#include <OvSylvarProducers/ShadingNodeDescription.h>

#include "support/FakeProducer.h"
#include "support/StaticScene.h"
#include "support/WrittenAttributes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace ovtest;
using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Nodes = ShadingNodeDescription::Nodes;

Nodes nodesOf(const GroupAttribute& network) {
    Nodes nodes;
    ShadingNodeDescription::GetShadingNetworkNodes(network, nodes);
    return nodes;
}

Nodes nodesOf(const std::string& network) {
    return nodesOf(writtenGroup(network));
}

Nodes oldNodes() {
    return nodesOf(R"({"nodes": {"old": {"name": "old", "type": "t"}}})");
}

std::vector<std::string> namesOf(const Nodes& nodes) {
    std::vector<std::string> names;
    for (const auto& [name, node] : nodes) {
        names.push_back(name);
    }
    return names;
}

/// The parameters of the node "a" of a network with that interface and those parameters.
ShadingNodeDescription overridden(const std::string& interface, const std::string& parameters) {
    const Nodes nodes =
        nodesOf(R"({"interface": )" + interface + R"(, "parameters": )" + parameters +
                R"(, "nodes": {"a": {"name": "a", "type": "t", "parameters": {"x": 0}}}})");
    return *nodes.at("a");
}

}  // namespace

TEST(ShadingNetwork, HasItsNodesByTheirNames) {
    const Nodes nodes = nodesOf(R"({"nodes": {
        "key": {"name": "b", "type": "paint", "parameters": {"x": 1}, "connections": {"in": "out@a"}},
        "a": {"name": "a", "type": "noise"}
    }})");
    EXPECT_THAT(namesOf(nodes), ElementsAre("a", "b"));
    EXPECT_EQ("paint", nodes.at("b")->getType());
    EXPECT_THAT(nodes.at("b")->getParameter("x"), IsWritten("1"));
    EXPECT_EQ("a", nodes.at("b")->getConnection("in")->getConnectedNodeName());
}

TEST(ShadingNetwork, IsReadWhateverItsStyle) {
    EXPECT_THAT(namesOf(nodesOf(R"({"style": 7, "nodes": {"a": {"name": "a", "type": "t"}}})")),
                ElementsAre("a"));
}

TEST(ShadingNetwork, WithoutNodesLeavesNothingOfWhatWasThere) {
    for (const char* const network :
         {"{}", R"({"nodes": 1})", R"({"nodes": {}})", R"({"nodes": null})"}) {
        Nodes nodes = oldNodes();
        ShadingNodeDescription::GetShadingNetworkNodes(writtenGroup(network), nodes);
        EXPECT_THAT(namesOf(nodes), IsEmpty()) << network;
    }
    Nodes nodes = oldNodes();
    ASSERT_THAT(namesOf(nodes), ElementsAre("old"));
    ShadingNodeDescription::GetShadingNetworkNodes(GroupAttribute(), nodes);
    EXPECT_THAT(namesOf(nodes), IsEmpty());
}

TEST(ShadingNetwork, ReplacesWhatWasThere) {
    Nodes nodes = oldNodes();
    ShadingNodeDescription::GetShadingNetworkNodes(
        writtenGroup(R"({"nodes": {"a": {"name": "a", "type": "t"}}})"), nodes);
    EXPECT_THAT(namesOf(nodes), ElementsAre("a"));
}

TEST(ShadingNetwork, LeavesOutNodesThatAreNotValid) {
    EXPECT_THAT(namesOf(nodesOf(R"({"nodes": {
                    "number": 1, "nothing": null, "untyped": {"name": "untyped"},
                    "empty": {"name": "", "type": "t"}, "a": {"name": "a", "type": "t"}
                }})")),
                ElementsAre("a"));
}

TEST(ShadingNetwork, TakesTheLaterOfTwoNodesOfOneName) {
    const Nodes nodes = nodesOf(R"({"nodes": {
        "z": {"name": "n", "type": "first"}, "a": {"name": "n", "type": "second"},
        "b": {"name": "n", "type": ""}
    }})");
    EXPECT_THAT(namesOf(nodes), ElementsAre("n"));
    EXPECT_EQ("second", nodes.at("n")->getType());
}

TEST(ShadingInterface, GivesItsValuesToTheNodesThatItNames) {
    const ShadingNodeDescription node =
        overridden(R"({"p": {"src": "a.x"}, "q": {"src": "a.new"}})", R"({"p": 1, "q": 2})");
    EXPECT_THAT(node.getParameterNames(), ElementsAre("x", "new"));
    EXPECT_THAT(node.getParameter("x"), IsWritten("1"));
    EXPECT_THAT(node.getParameter("new"), IsWritten("2"));
}

TEST(ShadingInterface, SharesTheValuesThatItGives) {
    const GroupAttribute network = writtenGroup(R"({
        "nodes": {"a": {"name": "a", "type": "t"}},
        "interface": {"p": {"src": "a.x"}}, "parameters": {"p": [1, 2, 3]}
    })");
    EXPECT_EQ(network.getChildByName("parameters.p").handle(),
              nodesOf(network).at("a")->getParameter("x").handle());
}

TEST(ShadingInterface, MeansNothingWithoutParametersAndTheOtherWayRound) {
    for (const auto& [interface, parameters] : std::vector<std::pair<std::string, std::string>>{
             {R"({"p": {"src": "a.x"}})", "1"},
             {R"({"p": {"src": "a.x"}})", "null"},
             {R"({"p": {"src": "a.x"}})", "{}"},
             {R"({"p": {"src": "a.x"}})", R"({"q": 1})"},
             {"7", R"({"p": 1})"},
             {"{}", R"({"p": 1})"},
             {R"({"q": {"src": "a.x"}})", R"({"p": 1})"}}) {
        const ShadingNodeDescription node = overridden(interface, parameters);
        EXPECT_THAT(node.getParameterNames(), ElementsAre("x")) << interface << parameters;
        EXPECT_THAT(node.getParameter("x"), IsWritten("0")) << interface << parameters;
    }
}

TEST(ShadingInterface, PassesOverWhatDoesNotSayANodeAndAParameter) {
    for (const char* const entry : {R"("a.x")",
                                    "{}",
                                    R"({"src": 1})",
                                    R"({"src": ""})",
                                    R"({"src": "x"})",
                                    R"({"src": "a.x.y"})",
                                    R"({"src": "a..x"})",
                                    R"({"src": "nowhere.x"})",
                                    "null"}) {
        const ShadingNodeDescription node =
            overridden(std::string(R"({"p": )") + entry + "}", R"({"p": 1})");
        EXPECT_THAT(node.getParameterNames(), ElementsAre("x")) << entry;
        EXPECT_THAT(node.getParameter("x"), IsWritten("0")) << entry;
    }
}

TEST(ShadingInterface, PassesOverAParameterThatIsNull) {
    const ShadingNodeDescription node = overridden(R"({"p": {"src": "a.x"}})", R"({"p": null})");
    EXPECT_THAT(node.getParameter("x"), IsWritten("0"));
}

TEST(ShadingInterface, NamesAParameterWithAnEmptyNameToo) {
    const ShadingNodeDescription node = overridden(R"({"p": {"src": "a."}})", R"({"p": 1})");
    EXPECT_THAT(node.getParameterNames(), ElementsAre("x", ""));
}

TEST(ShadingInterface, TakesTheLaterOfTwoValuesInTheOrderOfParameters) {
    const ShadingNodeDescription node = overridden(R"({"p": {"src": "a.x"}, "q": {"src": "a.x"}})",
                                                   R"({"q": "first", "p": "second"})");
    EXPECT_THAT(node.getParameter("x"), IsWritten(R"("second")"));
}

TEST(ShadingInterface, FindsANodeByItsKeyAndNotByItsName) {
    const Nodes nodes = nodesOf(R"({
        "nodes": {"a": {"name": "b", "type": "t"}, "c": {"name": "d", "type": "t"}},
        "interface": {"p": {"src": "a.x"}, "q": {"src": "d.x"}},
        "parameters": {"p": 1, "q": 2}
    })");
    EXPECT_THAT(nodes.at("b")->getParameterNames(), ElementsAre("x"));
    EXPECT_THAT(nodes.at("d")->getParameterNames(), IsEmpty());
}

TEST(ShadingInterface, DoesNotBringANodeToLifeThatIsNotValid) {
    EXPECT_THAT(namesOf(nodesOf(R"({
                    "nodes": {"a": {"name": "a"}}, "interface": {"p": {"src": "a.type"}},
                    "parameters": {"p": "t"}
                })")),
                IsEmpty());
}

TEST(ShadingInterface, IsLookedIntoByDotsForAParameterWithADot) {
    EXPECT_THAT(overridden(R"({"p.q": {"src": "a.x"}})", R"({"p.q": 1})").getParameter("x"),
                IsWritten("0"));
    EXPECT_THAT(overridden(R"({"p": {"q": {"src": "a.x"}}})", R"({"p.q": 1})").getParameter("x"),
                IsWritten("1"));
}

TEST(ShadingInterface, OfAMergedNetworkGivesItsValuesToTheRenamedNodes) {
    const GroupAttribute far = writtenGroup(R"({
        "style": "network",
        "nodes": {
            "a": {"name": "old", "type": "t", "connections": {"in": "out@b"}},
            "b": {"name": "b", "type": "t"}
        },
        "interface": {"p": {"src": "b.x"}},
        "parameters": {"p": 1},
        "terminals": {"surface": "a"}
    })");
    const GroupAttribute near = writtenGroup(R"({"style": "network"})");
    const Nodes nodes = nodesOf(GetFlattenedMaterialAttr({near, far}, {"surface"}));
    EXPECT_THAT(namesOf(nodes), ElementsAre("a:1", "b:1"));
    EXPECT_EQ("b:1", nodes.at("a:1")->getConnection("in")->getConnectedNodeName());
    EXPECT_THAT(nodes.at("b:1")->getParameter("x"), IsWritten("1"));
}

TEST(ShadingNetworkOfALocation, IsTheMaterialOfThatLocationAlone) {
    const auto scene =
        StaticScene()
            .set("/root", "material", written(R"({"nodes": {"a": {"name": "a", "type": "t"}}})"))
            .set("/root/x", "material", written(R"({"nodes": {"b": {"name": "b", "type": "t"}}})"))
            .at("/root/x/y");
    Nodes nodes;
    ShadingNodeDescription::GetShadingNetworkNodes(scene.open("/root/x"), nodes);
    EXPECT_THAT(namesOf(nodes), ElementsAre("b"));
    ShadingNodeDescription::GetShadingNetworkNodes(scene.open("/root/x/y"), nodes);
    EXPECT_THAT(namesOf(nodes), IsEmpty());
}

TEST(ShadingNetworkOfALocation, IsNoneWhenItsMaterialIsNoGroup) {
    const GeometryProducerPtr location(
        &(new FakeProducer("/root"))->set("material", IntAttribute(1)));
    Nodes nodes = oldNodes();
    ShadingNodeDescription::GetShadingNetworkNodes(location, nodes);
    EXPECT_THAT(namesOf(nodes), IsEmpty());
}
