// SPDX-License-Identifier: Apache-2.0
#include "unit/Materials/Materials.h"

using namespace ovtest;
using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;

namespace {

GroupAttribute minimized(const std::string& text) {
    return MinimizeResolvedMaterialAttr(writtenGroup(text));
}

}  // namespace

TEST(MinimizedMaterial, OfAnythingButANetworkIsTheSameGroup) {
    for (const char* const text : {R"({})",
                                   R"({"surfaceShader": "paint", "nodes": {}})",
                                   R"({"style": 7, "more": 1})",
                                   R"({"style": "Network", "more": 1})",
                                   R"({"style": {"$string": []}, "more": 1})",
                                   R"({"style": null, "more": 1})"}) {
        const GroupAttribute material = writtenGroup(text);
        EXPECT_EQ(material.handle(), MinimizeResolvedMaterialAttr(material).handle()) << text;
    }
}

TEST(MinimizedMaterial, OfNullIsNull) {
    EXPECT_FALSE(MinimizeResolvedMaterialAttr(GroupAttribute()));
}

TEST(MinimizedMaterial, HasWhatShadingReadsInOneOrder) {
    EXPECT_THAT(minimized(R"({
                    "$inherit": true,
                    "terminals": {"surface": "a", "x": 1},
                    "interface": {"p": {"src": "a.x"}},
                    "light": {"style": "network"},
                    "parameters": {"p": 1, "q": 2},
                    "nodes": {"a": {"more": 1}, "b": 2},
                    "info": "dropped",
                    "style": "network"
                })"),
                IsWritten(R"({
                    "style": "network",
                    "nodes": {"a": {"more": 1}, "b": 2},
                    "parameters": {"p": 1, "q": 2},
                    "interface": {"p": {"src": "a.x"}},
                    "terminals": {"surface": "a", "x": 1}
                })"));
}

TEST(MinimizedMaterial, OfANetworkWithItsStyleAloneHasItsStyleAlone) {
    EXPECT_THAT(minimized(R"({"style": "network", "more": 1})"),
                IsWritten(R"({"style": "network"})"));
}

TEST(MinimizedMaterial, OfANetworkWithNothingToCutIsTheSameGroup) {
    for (const char* const text : {R"({"style": "network"})",
                                   R"({"style": "network", "nodes": {}, "terminals": {}})",
                                   R"({"style": "network", "nodes": {}, "parameters": {"p": 1},
                                       "interface": {"p": {"src": "a.x"}}, "terminals": {}})"}) {
        const GroupAttribute material = writtenGroup(text);
        EXPECT_EQ(material.handle(), MinimizeResolvedMaterialAttr(material).handle()) << text;
    }
}

TEST(MinimizedMaterial, IsANewGroupWhenItsOrderOrItsGroupInheritIsAnother) {
    EXPECT_THAT(minimized(R"({"terminals": {}, "nodes": {}, "style": "network"})"),
                IsWritten(R"({"style": "network", "nodes": {}, "terminals": {}})"));
    EXPECT_THAT(minimized(R"({"$inherit": true, "style": "network"})"),
                IsWritten(R"({"style": "network"})"));
    EXPECT_THAT(minimized(R"({"style": "network", "parameters": {"p": 1, "q": 2},
                              "interface": {"q": {"src": "a.x"}, "p": {"src": "a.y"}}})"),
                IsWritten(R"({"style": "network", "parameters": {"p": 1, "q": 2},
                              "interface": {"p": {"src": "a.y"}, "q": {"src": "a.x"}}})"));
    EXPECT_THAT(minimized(R"({"style": "network", "parameters": {"p": 1},
                              "interface": {"p": {"$inherit": true, "src": "a.x"}}})"),
                IsWritten(R"({"style": "network", "parameters": {"p": 1},
                              "interface": {"p": {"src": "a.x"}}})"));
}

TEST(MinimizedMaterial, KeepsAllValuesOfItsStyle) {
    const char* const text =
        R"({"style": {"$string": [["old", "x"], ["network", "y"]], "$times": [-1, 0]}})";
    EXPECT_THAT(minimized(text), IsWritten(text));
}

TEST(MinimizedMaterial, TakesChildrenOfOtherKindsForMissing) {
    for (const char* const value : {"1", R"("text")", "null"}) {
        const std::string text = value;
        EXPECT_THAT(
            minimized(R"({"style": "network", "nodes": )" + text + R"(, "parameters": )" + text +
                      R"(, "interface": )" + text + R"(, "terminals": )" + text + "}"),
            IsWritten(R"({"style": "network"})"))
            << text;
    }
}

TEST(MinimizedMaterial, KeepsGroupsThatAreEmpty) {
    const char* const text =
        R"({"style": "network", "nodes": {}, "parameters": {}, "terminals": {}})";
    EXPECT_THAT(minimized(text), IsWritten(text));
}

TEST(MinimizedMaterial, SharesItsGroupsAndItsStyle) {
    const GroupAttribute material = writtenGroup(R"({
        "style": "network", "nodes": {"a": {}}, "parameters": {"p": 1},
        "interface": {"p": {"src": "a.x"}}, "terminals": {"surface": "a"}
    })");
    const GroupAttribute result = MinimizeResolvedMaterialAttr(material);
    for (const char* const name :
         {"style", "nodes", "parameters", "terminals", "interface.p.src"}) {
        EXPECT_TRUE(result.getChildByName(name)) << name;
        EXPECT_EQ(material.getChildByName(name).handle(), result.getChildByName(name).handle())
            << name;
    }
}

TEST(MinimizedInterface, GoesWhereThereAreNoParameters) {
    EXPECT_THAT(minimized(R"({"style": "network", "interface": {"p": {"src": "a.x"}}})"),
                IsWritten(R"({"style": "network"})"));
    EXPECT_THAT(
        minimized(R"({"style": "network", "parameters": 1, "interface": {"p": {"src": "a.x"}}})"),
        IsWritten(R"({"style": "network"})"));
}

TEST(MinimizedInterface, GoesWhereTheParametersAreEmpty) {
    EXPECT_THAT(
        minimized(R"({"style": "network", "parameters": {}, "interface": {"p": {"src": "a.x"}}})"),
        IsWritten(R"({"style": "network", "parameters": {}})"));
}

TEST(MinimizedInterface, KeepsTheEntriesThatHaveAParameterInTheOrderOfParameters) {
    EXPECT_THAT(minimized(R"({
                    "style": "network",
                    "parameters": {"r": 1, "p": null, "no": 2},
                    "interface": {
                        "p": {"src": "a.x"}, "unset": {"src": "a.y"}, "r": {"src": "a.z"}
                    }
                })"),
                IsWritten(R"({
                    "style": "network",
                    "parameters": {"r": 1, "p": null, "no": 2},
                    "interface": {"r": {"src": "a.z"}, "p": {"src": "a.x"}}
                })"));
}

TEST(MinimizedInterface, LosesEntriesWithoutASourceWhoseParametersStay) {
    EXPECT_THAT(
        minimized(R"({
                    "style": "network",
                    "parameters": {"a": 1, "b": 2, "c": 3, "d": 4},
                    "interface": {"a": {"label": "A"}, "b": {"src": 1}, "c": "a.x", "d": null}
                })"),
        IsWritten(R"({"style": "network", "parameters": {"a": 1, "b": 2, "c": 3, "d": 4}})"));
}

TEST(MinimizedInterface, KeepsTheSourceOfAnEntryAloneWhateverItSays) {
    EXPECT_THAT(minimized(R"({
                    "style": "network",
                    "parameters": {"a": 1, "b": 2},
                    "interface": {
                        "$inherit": true,
                        "a": {"$inherit": true, "label": "A", "src": "no dot", "more": {}},
                        "b": {"src": {"$string": []}}
                    }
                })"),
                IsWritten(R"({
                    "style": "network",
                    "parameters": {"a": 1, "b": 2},
                    "interface": {"a": {"src": "no dot"}, "b": {"src": {"$string": []}}}
                })"));
}

TEST(MinimizedInterface, IsLookedIntoByDotsForAParameterWithADot) {
    EXPECT_THAT(minimized(R"({
                    "style": "network",
                    "parameters": {"p.x": 1, "q.x": 2},
                    "interface": {"p.x": {"src": "a.x"}, "q": {"x": {"src": "a.x"}}}
                })"),
                IsWritten(R"({
                    "style": "network",
                    "parameters": {"p.x": 1, "q.x": 2},
                    "interface": {"q.x": {"src": "a.x"}}
                })"));
}
