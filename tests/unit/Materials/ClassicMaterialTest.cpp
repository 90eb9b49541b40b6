// SPDX-License-Identifier: Apache-2.0
#include "unit/Materials/Materials.h"

using namespace ovtest;
using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;

TEST(ClassicMaterials, HaveTheChildrenOfAllTheNearestOnesFirst) {
    EXPECT_THAT(merged({R"({"b": 1, "a": 2})", R"({"d": 3, "c": 4})", R"({"e": 5})"}),
                IsWritten(R"({"b": 1, "a": 2, "d": 3, "c": 4, "e": 5})"));
}

TEST(ClassicMaterials, TakeTheNearerOfTwoChildrenOfOneNameInItsPlace) {
    EXPECT_THAT(merged({R"({"a": 1, "b": 1})", R"({"c": 2, "b": 2})", R"({"c": 3, "a": 3})"}),
                IsWritten(R"({"a": 1, "b": 1, "c": 2})"));
}

TEST(ClassicMaterials, NeverMixTheParametersOfTwoShaders) {
    EXPECT_THAT(
        merged({R"({"surfaceParams": {"gloss": 1}})",
                R"({"surfaceShader": "paint", "surfaceParams": {"gloss": 2, "color": 3}})"}),
        IsWritten(R"({"surfaceParams": {"gloss": 1}, "surfaceShader": "paint"})"));
}

TEST(ClassicMaterials, TakeWhateverIsNearestWhateverItsKind) {
    EXPECT_THAT(merged({R"({"a": 1, "b": {}})", R"({"a": {"x": 1}, "b": "text"})"}),
                IsWritten(R"({"a": 1, "b": {}})"));
}

TEST(ClassicMaterials, HideAFartherChildBehindANullOne) {
    EXPECT_THAT(merged({R"({"a": null})", R"({"a": 1, "b": 2})"}),
                IsWritten(R"({"a": null, "b": 2})"));
}

TEST(ClassicMaterials, TakeNamesWithDotsAsTheyStand) {
    EXPECT_THAT(merged({R"({"a.b": 1})", R"({"a": {"b": 2}, "a.b": 3})"}),
                IsWritten(R"({"a.b": 1, "a": {"b": 2}})"));
}

TEST(ClassicMaterials, MeanNothingToTheTerminals) {
    const Texts materials = {R"({"surfaceShader": "paint"})", R"({"bumpShader": "noise"})"};
    EXPECT_EQ(merged(materials, {}).getHash(), merged(materials, {"surface", "bump"}).getHash());
    EXPECT_THAT(merged(materials, {}),
                IsWritten(R"({"surfaceShader": "paint", "bumpShader": "noise"})"));
}

TEST(ClassicMaterials, KeepAStyleThatIsNoNetworks) {
    EXPECT_THAT(merged({R"({"style": "old"})", R"({"style": "older", "a": 1})"}),
                IsWritten(R"({"style": "old", "a": 1})"));
}

TEST(ClassicMaterials, WithoutAnyChildAreNullAndNotAnEmptyGroup) {
    EXPECT_FALSE(merged({"{}", "{}"}));
    EXPECT_FALSE(GetFlattenedMaterialAttr({GroupAttribute(), GroupAttribute()}, {"surface"}));
}

TEST(ClassicMaterials, TakeANullOneForOneWithoutChildren) {
    EXPECT_THAT(GetFlattenedMaterialAttr({GroupAttribute(), writtenGroup(R"({"a": 1})")}, {}),
                IsWritten(R"({"a": 1})"));
}

TEST(ClassicMaterials, HaveGroupInheritOffButWhereAChildHasItOn) {
    EXPECT_THAT(merged({R"({"$inherit": true, "a": {"$inherit": true}})",
                        R"({"$inherit": true, "b": {}})"}),
                IsWritten(R"({"a": {"$inherit": true}, "b": {}})"));
}
