// SPDX-License-Identifier: Apache-2.0
#include "unit/Materials/Materials.h"

using namespace ovtest;
using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;

namespace {

/// A classic material that a merge with another one shows to be classic.
const char* const kOther = R"({"other": 1})";

bool isTakenForANetwork(const Attribute& style) {
    const GroupAttribute material({{"style", style}, {"kept", IntAttribute(1)}}, false);
    const GroupAttribute result = GetFlattenedMaterialAttr({material, material}, {"surface"});
    return !result.getChildByName("kept");
}

}  // namespace

TEST(MergedMaterial, OfNoneIsNull) {
    EXPECT_FALSE(GetFlattenedMaterialAttr(std::vector<GroupAttribute>(), {"surface"}));
}

TEST(MergedMaterial, OfOneIsThatOneAsItStandsWhateverItsTerminals) {
    for (
        const char* const text : {
            R"({"style": "network", "nodes": {"a": {"name": "b"}}, "terminals": {"surface": "a"}})",
            R"({"style": "network", "terminals": {"volume": "a"}, "more": 1})",
            R"({"surfaceShader": "paint", "more": 1})",
            R"({"$inherit": true, "style": 7})",
            R"({})",
        }) {
        const GroupAttribute only = writtenGroup(text);
        EXPECT_EQ(only.handle(), GetFlattenedMaterialAttr({only}, {"surface"}).handle()) << text;
        EXPECT_EQ(only.handle(), GetFlattenedMaterialAttr({only}, {}).handle()) << text;
    }
}

TEST(MergedMaterial, OfOneThatIsNullIsNull) {
    EXPECT_FALSE(GetFlattenedMaterialAttr({GroupAttribute()}, {"surface"}));
}

TEST(MergedMaterial, LeavesTheListOfItsCallerAsItWas) {
    const std::vector<GroupAttribute> materials = {
        writtenGroup(R"({"surfaceShader": "paint"})"),
        writtenGroup(R"({"style": "network", "terminals": {"surface": "a"}})")};
    const std::vector<GroupAttribute> before = materials;
    GetFlattenedMaterialAttr(materials, {"surface"});
    EXPECT_EQ(before[0].handle(), materials[0].handle());
    EXPECT_EQ(before[1].handle(), materials[1].handle());
    EXPECT_THAT(materials[0], IsWritten(R"({"surfaceShader": "paint"})"));
}

TEST(MaterialStyle, IsThatOfANetworkForTheStringNetworkAlone) {
    EXPECT_TRUE(isTakenForANetwork(StringAttribute("network")));
    for (const char* const text : {R"("Network")",
                                   R"("network ")",
                                   R"("")",
                                   R"("classic")",
                                   "7",
                                   R"({"network": "network"})",
                                   R"({"$string": []})",
                                   R"(["classic", "network"])"}) {
        EXPECT_FALSE(isTakenForANetwork(written(text))) << text;
    }
    EXPECT_FALSE(isTakenForANetwork(Attribute()));
}

TEST(MaterialStyle, IsTheFirstValueOfTheSampleNearestTimeZero) {
    EXPECT_TRUE(isTakenForANetwork(written(R"(["network", "classic"])")));
    EXPECT_TRUE(isTakenForANetwork(
        written(R"({"$string": [["classic"], ["network"]], "$times": [-1, 0.5]})")));
    EXPECT_FALSE(isTakenForANetwork(
        written(R"({"$string": [["network"], ["classic"]], "$times": [-1, 0.5]})")));
}

TEST(MaterialStyle, AloneDecidesAboutTheShape) {
    EXPECT_THAT(merged({R"({"nodes": {"a": {}}, "terminals": {"surface": "a"}})", kOther}),
                IsWritten(R"({"nodes": {"a": {}}, "terminals": {"surface": "a"}, "other": 1})"));
    EXPECT_THAT(merged({R"({"style": "network", "surfaceShader": "paint"})",
                        R"({"style": "network", "surfaceParams": {}})"}),
                IsWritten(R"({"style": "network"})"));
}

TEST(MixedMaterials, AreANetworkInWhichTheClassicOneHasANodeForEachTerminal) {
    EXPECT_THAT(merged({R"({"surfaceShader": "paint", "surfaceParams": {"gloss": 1}})",
                        R"({"style": "network", "nodes": {"b": {}}, "terminals": {"bump": "b"}})"},
                       {"surface", "bump"}),
                IsWritten(R"({
                    "style": "network",
                    "nodes": {
                        "surface:0": {
                            "name": "surface:0", "type": "paint", "parameters": {"gloss": 1}
                        },
                        "b:1": {"name": "b:1"}
                    },
                    "terminals": {"surface": "surface:0", "bump": "b:1"}
                })"));
}

TEST(MixedMaterials, HaveTheNodesOfAClassicOneInTheCallersOrder) {
    EXPECT_THAT(
        merged({R"({"style": "network"})", R"({"bumpShader": "noise", "surfaceShader": "paint"})"},
               {"surface", "bump"}),
        IsWritten(R"({
                    "style": "network",
                    "nodes": {
                        "surface:1": {"name": "surface:1", "type": "paint"},
                        "bump:1": {"name": "bump:1", "type": "noise"}
                    },
                    "terminals": {"surface": "surface:1", "bump": "bump:1"}
                })"));
}

TEST(MixedMaterials, PutTypeAndParametersOfAClassicOneIntoItsNodeInOneOrder) {
    EXPECT_THAT(
        merged({R"({"surfaceParams": {"$inherit": true, "x": 1}, "surfaceShader": "paint"})",
                R"({"style": "network"})"}),
        IsWritten(R"({
                    "style": "network",
                    "nodes": {"surface:0": {
                        "name": "surface:0", "type": "paint",
                        "parameters": {"$inherit": true, "x": 1}
                    }},
                    "terminals": {"surface": "surface:0"}
                })"));
}

TEST(MixedMaterials, LeaveTheParametersOutWhenTheyAreMissingOrNoGroup) {
    for (const char* const material : {R"({"surfaceShader": "paint"})",
                                       R"({"surfaceShader": "paint", "surfaceParams": 1})",
                                       R"({"surfaceShader": "paint", "surfaceParams": null})"}) {
        EXPECT_THAT(merged({material, R"({"style": "network"})"}), IsWritten(R"({
                        "style": "network",
                        "nodes": {"surface:0": {"name": "surface:0", "type": "paint"}},
                        "terminals": {"surface": "surface:0"}
                    })"))
            << material;
    }
}

TEST(MixedMaterials, KeepParametersThatAreEmpty) {
    EXPECT_THAT(
        merged({R"({"surfaceShader": "paint", "surfaceParams": {}})", R"({"style": "network"})"}),
        IsWritten(R"({
                    "style": "network",
                    "nodes": {"surface:0": {"name": "surface:0", "type": "paint", "parameters": {}}},
                    "terminals": {"surface": "surface:0"}
                })"));
}

TEST(MixedMaterials, DropWhatAClassicOneHasForNoTerminalOfTheList) {
    EXPECT_THAT(merged({R"({"volumeShader": "fog", "surfaceParams": {}, "light": "lamp"})",
                        R"({"style": "network"})"}),
                IsWritten(R"({"style": "network"})"));
}

TEST(MixedMaterials, TakeAShaderThatIsEmptyOrNoStringForNone) {
    for (const char* const shader :
         {R"("")", "1", R"({"name": "paint"})", "null", R"({"$string": []})"}) {
        const std::string classic = std::string(R"({"surfaceShader": )") + shader + "}";
        EXPECT_THAT(merged({classic, R"({"style": "network"})"}),
                    IsWritten(R"({"style": "network"})"))
            << shader;
    }
}

TEST(MixedMaterials, KeepAllSamplesOfAShadersType) {
    const char* const type = R"({"$string": [["paint"], ["steel"]], "$times": [0, 1]})";
    const GroupAttribute result =
        merged({std::string(R"({"surfaceShader": )") + type + "}", R"({"style": "network"})"});
    const auto nodes = result.getChild<GroupAttribute>("nodes");
    EXPECT_THAT(castAttribute<GroupAttribute>(nodes.getChildByIndex(0)).getChildByName("type"),
                IsWritten(type));
}

TEST(MixedMaterials, CountAClassicOneThatGivesNothing) {
    EXPECT_THAT(
        merged({R"({"style": "network"})",
                R"({"lightShader": "lamp"})",
                R"({"style": "network", "nodes": {"a": {}}, "terminals": {"surface": "a"}})"}),
        IsWritten(R"({
                    "style": "network",
                    "nodes": {"a:2": {"name": "a:2"}},
                    "terminals": {"surface": "a:2"}
                })"));
}

TEST(MixedMaterials, CountANullOneAsAClassicOne) {
    const GroupAttribute network =
        writtenGroup(R"({"style": "network", "nodes": {"a": {}}, "terminals": {"surface": "a"}})");
    EXPECT_THAT(GetFlattenedMaterialAttr({GroupAttribute(), network}, {"surface"}), IsWritten(R"({
                    "style": "network",
                    "nodes": {"a:1": {"name": "a:1"}},
                    "terminals": {"surface": "a:1"}
                })"));
}

TEST(MixedMaterials, DropANearNetworkThatDrivesNoListedTerminal) {
    EXPECT_THAT(merged({R"({"style": "network", "nodes": {"a": {}}, "terminals": {"volume": "a"}})",
                        R"({"surfaceShader": "paint"})"}),
                IsWritten(R"({
                    "style": "network",
                    "nodes": {"surface:1": {"name": "surface:1", "type": "paint"}},
                    "terminals": {"surface": "surface:1"}
                })"));
}

TEST(MixedMaterials, KeepANearNetworkThatDrivesAListedTerminal) {
    EXPECT_THAT(
        merged({R"({"style": "network", "nodes": {"a": {}}, "terminals": {"surface": "a"}})",
                R"({"surfaceShader": "paint"})"}),
        IsWritten(R"({
                    "style": "network",
                    "nodes": {"a:0": {"name": "a:0"}},
                    "terminals": {"surface": "a:0"}
                })"));
}
