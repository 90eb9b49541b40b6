// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/TextureAttributes.h>

#include "support/WrittenAttributes.h"

#include <gtest/gtest.h>

#include <string>

using namespace ovtest;
using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;

namespace {

GroupAttribute converted(const std::string& textures) {
    return ConvertTexturesToArbitraryAttr(writtenGroup(textures));
}

}  // namespace

TEST(TextureAttributes, OfNullAreNull) {
    EXPECT_FALSE(ConvertTexturesToArbitraryAttr(GroupAttribute()));
}

TEST(TextureAttributes, OfNothingThatFitsAreAnEmptyGroupWithGroupInherit) {
    for (const char* const textures : {"{}",
                                       R"({"a": 1})",
                                       R"({"a": {"$float": [1, 2]}})",
                                       R"({"a": {"$double": 1}, "b": null})",
                                       R"({"a": {}})",
                                       R"({"a": {"maps": 1, "indicies": [0, 1]}})",
                                       R"({"a": {"maps": {"x": "y"}}})",
                                       R"({"a": {"indicies": [0, 1]}})"}) {
        EXPECT_THAT(converted(textures), IsWritten(R"({"$inherit": true})")) << textures;
    }
}

TEST(TextureAttributes, OfAStringAreForTheWholePrimitive) {
    EXPECT_THAT(converted(R"({"color": "a.tx"})"),
                IsWritten(R"({"color": {"value": "a.tx", "scope": "primitive"}})"));
}

TEST(TextureAttributes, OfAStringOfManyValuesOrNoneAreForTheWholePrimitive) {
    EXPECT_THAT(converted(R"({"color": ["a.tx", "b.tx"], "none": {"$string": []}})"), IsWritten(R"({
                    "color": {"value": ["a.tx", "b.tx"], "scope": "primitive"},
                    "none": {"value": {"$string": []}, "scope": "primitive"}
                })"));
}

TEST(TextureAttributes, OfTwoMapsWithIndicesAreForTheFaces) {
    EXPECT_THAT(converted(R"({"color": {"indicies": [0, 1, 1], "maps": ["a.tx", "b.tx"]}})"),
                IsWritten(R"({"color": {
                    "scope": "face", "indexedValue": ["a.tx", "b.tx"], "index": [0, 1, 1]
                }})"));
}

TEST(TextureAttributes, TakeIndicesAsTheyAreWhetherTheyFitOrNot) {
    EXPECT_THAT(converted(R"({"color": {"maps": ["a.tx", "b.tx"], "indicies": [-1, 7]}})"),
                IsWritten(R"({"color": {
                    "scope": "face", "indexedValue": ["a.tx", "b.tx"], "index": [-1, 7]
                }})"));
    EXPECT_THAT(converted(R"({"color": {"maps": ["a.tx", "b.tx"], "indicies": {"$int": []}}})"),
                IsWritten(R"({"color": {
                    "scope": "face", "indexedValue": ["a.tx", "b.tx"], "index": {"$int": []}
                }})"));
}

TEST(TextureAttributes, OfMapsWithoutIndicesAreForTheWholePrimitive) {
    for (const char* const rest : {"",
                                   R"(, "indicies": [0.0, 1.0])",
                                   R"(, "indicies": {"$float": [0, 1]})",
                                   R"(, "indicies": ["0", "1"])",
                                   R"(, "indicies": {"x": 1})",
                                   R"(, "indicies": null)"}) {
        EXPECT_THAT(converted(std::string(R"({"color": {"maps": ["a.tx", "b.tx"])") + rest + "}}"),
                    IsWritten(R"({"color": {"value": ["a.tx", "b.tx"], "scope": "primitive"}})"))
            << rest;
    }
}

TEST(TextureAttributes, KnowTheirIndicesByTheMisspeltNameAlone) {
    for (const char* const name : {"indices", "index", "Indicies"}) {
        EXPECT_THAT(converted(std::string(R"({"color": {"maps": ["a.tx", "b.tx"], ")") + name +
                              R"(": [0, 1]}})"),
                    IsWritten(R"({"color": {"value": ["a.tx", "b.tx"], "scope": "primitive"}})"))
            << name;
    }
}

TEST(TextureAttributes, OfOneMapOrNoneDropTheIndices) {
    EXPECT_THAT(converted(R"({
                    "color": {"maps": "a.tx", "indicies": [0, 0]},
                    "none": {"maps": {"$string": []}, "indicies": [0, 0]}
                })"),
                IsWritten(R"({
                    "color": {"value": "a.tx", "scope": "primitive"},
                    "none": {"value": {"$string": []}, "scope": "primitive"}
                })"));
}

TEST(TextureAttributes, CountTheMapsOfOneSample) {
    const std::string moving = R"({"$string": [["a.tx"], ["b.tx"]], "$times": [0, 1]})";
    EXPECT_THAT(converted(R"({"color": {"maps": )" + moving + R"(, "indicies": [0, 0]}})"),
                IsWritten(R"({"color": {"value": )" + moving + R"(, "scope": "primitive"}})"));
    const std::string none = R"({"$string": [], "$times": []})";
    EXPECT_THAT(converted(R"({"color": {"maps": )" + none + R"(, "indicies": [0, 0]}})"),
                IsWritten(R"({"color": {"value": )" + none + R"(, "scope": "primitive"}})"));
}

TEST(TextureAttributes, GoOnBehindWhatDoesNotFit) {
    EXPECT_THAT(
        converted(
            R"({"no": 1, "b": "b.tx", "nor": {"maps": 1}, "a": {"maps": "a.tx"}, "z": null})"),
        IsWritten(R"({
                    "b": {"value": "b.tx", "scope": "primitive"},
                    "a": {"value": "a.tx", "scope": "primitive"}
                })"));
}

TEST(TextureAttributes, OfANameWithADotStandInAGroup) {
    EXPECT_THAT(converted(R"({"color.left": "a.tx", "color.right": "b.tx"})"), IsWritten(R"({
                    "color": {
                        "left": {"value": "a.tx", "scope": "primitive"},
                        "right": {"value": "b.tx", "scope": "primitive"}
                    }
                })"));
}

TEST(TextureAttributes, ShareTheirValues) {
    const GroupAttribute textures =
        writtenGroup(R"({"a": "a.tx", "b": {"maps": ["b.tx", "c.tx"], "indicies": [0, 1]}})");
    const GroupAttribute result = ConvertTexturesToArbitraryAttr(textures);
    const auto sameHandle = [&](const char* from, const char* to) {
        ASSERT_TRUE(result.getChildByName(to)) << to;
        EXPECT_EQ(textures.getChildByName(from).handle(), result.getChildByName(to).handle()) << to;
    };
    sameHandle("a", "a.value");
    sameHandle("b.maps", "b.indexedValue");
    sameHandle("b.indicies", "b.index");
}
