// SPDX-License-Identifier: Apache-2.0
#include "unit/Materials/Materials.h"

using namespace ovtest;
using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;

namespace {

const char* const kNothing = R"({"style": "network"})";

/// A network that drives "surface", with more of what is written, merged behind one that drives
/// nothing.
GroupAttribute mergedWith(const std::string& more) {
    return merged(
        {kNothing, R"({"style": "network", "terminals": {"surface": "a"}, )" + more + "}"});
}

/// What is left of one child of that network.
GroupAttribute leftOf(const std::string& name, const std::string& value) {
    return mergedWith("\"" + name + "\": " + value).getChild<GroupAttribute>(name);
}

GroupAttribute leftOfNode(const std::string& node) {
    const GroupAttribute nodes = leftOf("nodes", R"({"a": )" + node + "}");
    return castAttribute<GroupAttribute>(nodes.getChildByIndex(0));
}

}  // namespace

TEST(NetworkMaterials, EachGiveTheTerminalsThatNoNearerOneHas) {
    EXPECT_THAT(merged({R"({
                            "style": "network",
                            "nodes": {"a": {"name": "a", "type": "paint"}},
                            "terminals": {"surface": "a"}
                        })",
                        R"({
                            "style": "network",
                            "nodes": {"b": {"name": "b", "type": "noise"}},
                            "terminals": {"surface": "b", "displacement": "b"}
                        })"},
                       {"surface", "displacement"}),
                IsWritten(R"({
                    "style": "network",
                    "nodes": {
                        "a:0": {"name": "a:0", "type": "paint"},
                        "b:1": {"name": "b:1", "type": "noise"}
                    },
                    "terminals": {"surface": "a:0", "displacement": "b:1"}
                })"));
}

TEST(NetworkMaterials, VanishWhenANearerOneDrivesAllTheirTerminals) {
    EXPECT_THAT(
        merged({R"({"style": "network", "nodes": {"a": {}}, "terminals": {"surface": "a"}})",
                R"({
                            "style": "network",
                            "nodes": {"b": {}},
                            "interface": {"p": {"src": "b.x"}},
                            "parameters": {"p": 1},
                            "terminals": {"surface": "b"}
                        })"},
               {"surface", "displacement"}),
        IsWritten(R"({
                    "style": "network",
                    "nodes": {"a:0": {"name": "a:0"}},
                    "terminals": {"surface": "a:0"}
                })"));
}

TEST(NetworkMaterials, AreKeptWholeWhenOneOfTheirTerminalsIsTaken) {
    EXPECT_THAT(
        merged({R"({"style": "network", "nodes": {"a": {}}, "terminals": {"surface": "a"}})",
                R"({
                            "style": "network",
                            "nodes": {"a": {"x": 1}, "unused": {}},
                            "interface": {"p": {"src": "a.x"}},
                            "parameters": {"p": 1},
                            "terminals": {"surface": "a", "displacement": "a"}
                        })"},
               {"surface", "displacement"}),
        IsWritten(R"({
                    "style": "network",
                    "nodes": {
                        "a:0": {"name": "a:0"},
                        "a:1": {"x": 1, "name": "a:1"},
                        "unused:1": {"name": "unused:1"}
                    },
                    "interface": {"p:1": {"src": "a:1.x"}},
                    "parameters": {"p:1": 1},
                    "terminals": {"surface": "a:0", "displacement": "a:1"}
                })"));
}

TEST(NetworkMaterials, AreNothingButTheStyleWithoutATerminalInTheList) {
    const char* const network =
        R"({"style": "network", "nodes": {"a": {}}, "terminals": {"surface": "a"}})";
    EXPECT_THAT(merged({network, network}, {}), IsWritten(kNothing));
    EXPECT_THAT(merged({network, network}, {"volume"}), IsWritten(kNothing));
}

TEST(NetworkMaterials, UseUpTheirNumberAlsoWhenTheyGiveNothing) {
    const char* const network =
        R"({"style": "network", "nodes": {"a": {}}, "terminals": {"surface": "a"}})";
    Texts materials(10, kNothing);
    materials.emplace_back(network);
    EXPECT_THAT(merged(materials), IsWritten(R"({
                    "style": "network",
                    "nodes": {"a:10": {"name": "a:10"}},
                    "terminals": {"surface": "a:10"}
                })"));
}

TEST(NetworkMaterials, HaveTheirChildrenInOneOrderWhateverThatOfTheOnesTheyCameOf) {
    EXPECT_THAT(merged({kNothing,
                        R"({
                            "terminals": {"surface": "a"},
                            "parameters": {"p": 1},
                            "more": "dropped",
                            "interface": {"p": {"src": "a.x"}},
                            "nodes": {"a": {}},
                            "style": "network"
                        })"}),
                IsWritten(R"({
                    "style": "network",
                    "nodes": {"a:1": {"name": "a:1"}},
                    "interface": {"p:1": {"src": "a:1.x"}},
                    "parameters": {"p:1": 1},
                    "terminals": {"surface": "a:1"}
                })"));
}

TEST(NetworkMaterials, LeaveOutWhatIsMissingEmptyOrNoGroup) {
    for (const char* const value : {"{}", "1", R"("text")", "null"}) {
        const std::string text = value;
        EXPECT_THAT(mergedWith(R"("nodes": )" + text + R"(, "interface": )" + text +
                               R"(, "parameters": )" + text),
                    IsWritten(R"({"style": "network", "terminals": {"surface": "a:1"}})"))
            << text;
    }
}

TEST(NetworkMaterials, HaveAStyleOfTheirOwn) {
    EXPECT_THAT(merged({R"({"style": ["network", "more"]})", kNothing}), IsWritten(kNothing));
}

TEST(NetworkMaterials, HaveGroupInheritOffButInConnectionsAndValues) {
    EXPECT_THAT(merged({kNothing,
                        R"({
                            "$inherit": true,
                            "style": "network",
                            "nodes": {"$inherit": true, "a": {
                                "$inherit": true,
                                "connections": {"$inherit": false, "in": "out@b"},
                                "parameters": {"$inherit": true, "x": 1}
                            }},
                            "interface": {"$inherit": true, "p": {"$inherit": true, "src": "a.x"}},
                            "parameters": {"$inherit": true, "p": {"$inherit": true}},
                            "terminals": {"$inherit": true, "surface": "a"}
                        })"}),
                IsWritten(R"({
                    "style": "network",
                    "nodes": {"a:1": {
                        "connections": {"$inherit": true, "in": "out@b:1"},
                        "parameters": {"$inherit": true, "x": 1},
                        "name": "a:1"
                    }},
                    "interface": {"p:1": {"src": "a:1.x"}},
                    "parameters": {"p:1": {"$inherit": true}},
                    "terminals": {"surface": "a:1"}
                })"));
}

TEST(NetworkTerminals, StandInTheCallersOrder) {
    const Texts materials = {
        kNothing,
        R"({"style": "network", "terminals": {"bump": "b", "volume": "v", "surface": "s"}})"};
    EXPECT_THAT(merged(materials, {"surface", "bump", "volume"}), IsWritten(R"({
                    "style": "network",
                    "terminals": {"surface": "s:1", "bump": "b:1", "volume": "v:1"}
                })"));
}

TEST(NetworkTerminals, ComeMaterialByMaterial) {
    EXPECT_THAT(merged({R"({"style": "network", "terminals": {"bump": "b"}})",
                        R"({"style": "network", "terminals": {"surface": "s"}})"},
                       {"surface", "bump"}),
                IsWritten(R"({
                    "style": "network",
                    "terminals": {"bump": "b:0", "surface": "s:1"}
                })"));
}

TEST(NetworkTerminals, AreDroppedWhenTheyAreNotInTheList) {
    EXPECT_THAT(
        merged({kNothing, R"({"style": "network", "terminals": {"volume": "v", "surface": "s"}})"}),
        IsWritten(R"({"style": "network", "terminals": {"surface": "s:1"}})"));
}

TEST(NetworkTerminals, ThatAreEmptyAreTakenFromTheNextMaterial) {
    for (const char* const nothing :
         {R"("")", "1", "null", R"({"a": "a"})", R"({"$string": []})"}) {
        EXPECT_THAT(merged({std::string(R"({"style": "network", "terminals": {"surface": )") +
                                nothing + "}}",
                            R"({"style": "network", "terminals": {"surface": "s"}})"}),
                    IsWritten(R"({"style": "network", "terminals": {"surface": "s:1"}})"))
            << nothing;
    }
}

TEST(NetworkTerminals, ThatAreListedTwiceAreTakenOnce) {
    EXPECT_THAT(
        merged({R"({"style": "network", "terminals": {"surface": "a"}})",
                R"({"style": "network", "nodes": {"b": {}}, "terminals": {"surface": "b"}})"},
               {"surface", "surface"}),
        IsWritten(R"({"style": "network", "terminals": {"surface": "a:0"}})"));
}

TEST(NetworkTerminals, WithADotAreLookedForInAGroup) {
    EXPECT_THAT(merged({kNothing,
                        R"({"style": "network", "terminals": {"out.surface": "no",
                                                              "out": {"surface": "a"}}})"},
                       {"out.surface"}),
                IsWritten(R"({"style": "network", "terminals": {"out.surface": "a:1"}})"));
}

TEST(NetworkTerminals, NameANodeThatNeedNotBeThere) {
    EXPECT_THAT(mergedWith(R"("nodes": {"b": {}})"), IsWritten(R"({
                    "style": "network",
                    "nodes": {"b:1": {"name": "b:1"}},
                    "terminals": {"surface": "a:1"}
                })"));
}

TEST(NetworkTerminals, BecomeOneValueOfTheSampleNearestTimeZero) {
    EXPECT_THAT(merged({kNothing,
                        R"({"style": "network", "terminals": {"surface":
                            {"$string": [["x", "y"], ["a", "b"]], "$times": [-2, 1]}}})"}),
                IsWritten(R"({"style": "network", "terminals": {"surface": "a:1"}})"));
}

TEST(NetworkNodes, KeepAllTheirKeysInTheirPlaces) {
    EXPECT_THAT(leftOfNode(R"({
                    "type": "paint", "name": "a", "connections": {"in": "out@b"}, "parameters": {"x": 1},
                    "x.y": [1, 2], "gone": null
                })"),
                IsWritten(R"({
                    "type": "paint", "name": "a:1",
                    "connections": {"$inherit": true, "in": "out@b:1"}, "parameters": {"x": 1},
                    "x.y": [1, 2], "gone": null
                })"));
}

TEST(NetworkNodes, AreNamedByTheirKeyWhateverTheirNameWas) {
    EXPECT_THAT(leftOfNode(R"({"name": "other", "type": "paint"})"),
                IsWritten(R"({"name": "a:1", "type": "paint"})"));
    EXPECT_THAT(leftOfNode(R"({"name": 7})"), IsWritten(R"({"name": "a:1"})"));
}

TEST(NetworkNodes, WithoutANameHaveOneAtTheirEnd) {
    EXPECT_THAT(leftOfNode(R"({"type": "paint"})"),
                IsWritten(R"({"type": "paint", "name": "a:1"})"));
}

TEST(NetworkNodes, KeepTheirOrder) {
    EXPECT_THAT(leftOf("nodes", R"({"c": {}, "a": {}, "b.x": {}})"), IsWritten(R"({
                    "c:1": {"name": "c:1"}, "a:1": {"name": "a:1"}, "b.x:1": {"name": "b.x:1"}
                })"));
}

TEST(NetworkNodes, ThatAreNoGroupsAreDropped) {
    EXPECT_THAT(leftOf("nodes", R"({"a": 1, "b": "node", "c": null, "d": {}})"),
                IsWritten(R"({"d:1": {"name": "d:1"}})"));
}

TEST(NetworkNodes, HaveASuffixBehindTheOneThatTheyHaveAlready) {
    EXPECT_THAT(leftOf("nodes", R"({"a:0": {}, "a:1": {}})"),
                IsWritten(R"({"a:0:1": {"name": "a:0:1"}, "a:1:1": {"name": "a:1:1"}})"));
}

TEST(NetworkConnections, LeadToTheRenamedNodes) {
    EXPECT_THAT(leftOfNode(R"({"connections": {"in": "out@b", "of.x:3": "no port", "e": ""}})"),
                IsWritten(R"({
                    "connections": {
                        "$inherit": true, "in": "out@b:1", "of.x:3": "no port:1", "e": ":1"
                    },
                    "name": "a:1"
                })"));
}

TEST(NetworkConnections, OfOtherKindsStayAsTheyAre) {
    EXPECT_THAT(leftOfNode(R"({"connections": {"g": {"in": "out@b"}, "i": 1, "n": null}})"),
                IsWritten(R"({
                    "connections": {"$inherit": true, "g": {"in": "out@b"}, "i": 1, "n": null},
                    "name": "a:1"
                })"));
}

TEST(NetworkConnections, WithoutAnyAreLeftAsTheyStand) {
    EXPECT_THAT(leftOfNode(R"({"connections": {}})"),
                IsWritten(R"({"connections": {}, "name": "a:1"})"));
    EXPECT_THAT(leftOfNode(R"({"connections": {"$inherit": true}})"),
                IsWritten(R"({"connections": {"$inherit": true}, "name": "a:1"})"));
    EXPECT_THAT(leftOfNode(R"({"connections": "out@b"})"),
                IsWritten(R"({"connections": "out@b", "name": "a:1"})"));
}

TEST(NetworkConnections, HaveGroupInheritOnAsNothingElseHas) {
    const GroupAttribute node = leftOfNode(R"({"connections": {"in": "out@b"}})");
    EXPECT_FALSE(node.getGroupInherit());
    EXPECT_TRUE(node.getChild<GroupAttribute>("connections").getGroupInherit());
}

TEST(NetworkConnections, AreOneValueAfterwards) {
    EXPECT_THAT(
        leftOfNode(R"({"connections": {"in": ["out@b", "out@c"], "none": {"$string": []}}})"),
        IsWritten(R"({
                    "connections": {"$inherit": true, "in": "out@b:1", "none": ":1"}, "name": "a:1"
                })"));
}

TEST(NetworkInterface, LeadsToTheRenamedNodes) {
    EXPECT_THAT(leftOf("interface", R"({"q": {"src": "a.x"}, "p": {"src": "b.y"}})"),
                IsWritten(R"({"q:1": {"src": "a:1.x"}, "p:1": {"src": "b:1.y"}})"));
}

TEST(NetworkInterface, KeepsTheSourceOfAnEntryAlone) {
    EXPECT_THAT(leftOf("interface", R"({"p": {"label": "P", "src": ["a.x", "a.y"], "hint": {}}})"),
                IsWritten(R"({"p:1": {"src": "a:1.x"}})"));
}

TEST(NetworkInterface, LosesEntriesWithoutASource) {
    EXPECT_THAT(leftOf("interface",
                       R"({"a": {}, "b": {"src": 1}, "c": "a.x", "d": null, "p": {"src": "a.x"}})"),
                IsWritten(R"({"p:1": {"src": "a:1.x"}})"));
}

TEST(NetworkInterface, LosesAnEntryWhoseNodeHasADotAndKeepsItsParameter) {
    for (const char* const source : {"a", "", "a.b.x", "a..x", ".."}) {
        EXPECT_THAT(mergedWith(std::string(R"("interface": {"p": {"src": ")") + source +
                               R"("}}, "parameters": {"p": 1})"),
                    IsWritten(R"({
                        "style": "network", "parameters": {"p:1": 1}, "terminals": {"surface": "a:1"}
                    })"))
            << source;
    }
}

TEST(NetworkInterface, KeepsAnEntryOfWhichAPieceIsEmpty) {
    EXPECT_THAT(
        leftOf("interface", R"({"p": {"src": ".x"}, "q": {"src": "a."}, "r": {"src": "."}})"),
        IsWritten(R"({"p:1": {"src": ":1.x"}, "q:1": {"src": "a:1."}, "r:1": {"src": ":1."}})"));
}

TEST(NetworkParameters, KeepTheirValuesUnderNewNames) {
    EXPECT_THAT(leftOf("parameters", R"({"q": [1, 2], "p.x": {"$float": 1}, "g": {}, "n": null})"),
                IsWritten(R"({"q:1": [1, 2], "p.x:1": {"$float": 1}, "g:1": {}, "n:1": null})"));
}

TEST(NetworkParameters, OfAllMaterialsThatAreKeptStandSideBySide) {
    EXPECT_THAT(
        merged({R"({"style": "network", "parameters": {"p": 1}, "terminals": {"surface": "a"}})",
                R"({"style": "network", "parameters": {"p": 2}, "terminals": {"bump": "a"}})"},
               {"surface", "bump"}),
        IsWritten(R"({
            "style": "network",
            "parameters": {"p:0": 1, "p:1": 2},
            "terminals": {"surface": "a:0", "bump": "a:1"}
        })"));
}
