// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ShadingNodeDescription.h>

#include "support/WrittenAttributes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

using namespace ovtest;
using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Overrides = ShadingNodeDescription::Parameters;

ShadingNodeDescription described(const std::string& node, const Overrides* overrides = nullptr) {
    return ShadingNodeDescription(writtenGroup(node), overrides);
}

void expectNothing(const ShadingNodeDescription& node) {
    EXPECT_FALSE(node.isValid());
    EXPECT_EQ("", node.getName());
    EXPECT_EQ("", node.getType());
    EXPECT_THAT(node.getParameterNames(), IsEmpty());
    EXPECT_THAT(node.getConnectionNames(), IsEmpty());
    EXPECT_FALSE(node.getParameter("x"));
    EXPECT_FALSE(node.getConnection("in"));
}

}  // namespace

TEST(ShadingNode, HasItsNameAndType) {
    const ShadingNodeDescription node = described(R"({"name": "a", "type": "paint"})");
    EXPECT_TRUE(node.isValid());
    EXPECT_EQ("a", node.getName());
    EXPECT_EQ("paint", node.getType());
    EXPECT_THAT(node.getParameterNames(), IsEmpty());
    EXPECT_THAT(node.getConnectionNames(), IsEmpty());
}

TEST(ShadingNode, IsNothingWithoutTheStringsNameAndType) {
    const Overrides overrides = {{"x", IntAttribute(1)}};
    const std::string rest = R"(, "parameters": {"x": 1}, "connections": {"in": "out@b"}})";
    for (const char* const start : {R"({"name": "a")",
                                    R"({"type": "paint")",
                                    R"({"name": 1, "type": "paint")",
                                    R"({"name": "a", "type": {"x": "paint"})",
                                    R"({"name": "a", "type": null)"}) {
        SCOPED_TRACE(start);
        expectNothing(described(start + rest, &overrides));
    }
    expectNothing(ShadingNodeDescription(GroupAttribute(), &overrides));
}

TEST(ShadingNode, IsNotValidWithAnEmptyNameOrTypeAndIsReadAllTheSame) {
    for (const char* const start : {R"({"name": "", "type": "paint")",
                                    R"({"name": "a", "type": "")",
                                    R"({"name": {"$string": []}, "type": "paint")"}) {
        SCOPED_TRACE(start);
        const ShadingNodeDescription node = described(
            std::string(start) + R"(, "parameters": {"x": 1}, "connections": {"in": "out@b"}})");
        EXPECT_FALSE(node.isValid());
        EXPECT_THAT(node.getParameterNames(), ElementsAre("x"));
        EXPECT_THAT(node.getConnectionNames(), ElementsAre("in"));
    }
}

TEST(ShadingNode, TakesTheFirstValueOfTheSampleNearestTimeZero) {
    const ShadingNodeDescription node = described(R"({
        "name": {"$string": [["x", "x"], ["a", "x"]], "$times": [-3, 1]}, "type": ["paint", "x"]
    })");
    EXPECT_EQ("a", node.getName());
    EXPECT_EQ("paint", node.getType());
}

TEST(ShadingNode, HasNothingToBeCalledThroughAPointerOfABase) {
    EXPECT_FALSE(std::is_polymorphic_v<ShadingNodeDescription>);
    EXPECT_FALSE(std::is_polymorphic_v<ShadingNodeConnectionDescription>);
}

TEST(ShadingNodeParameters, AreThoseOfTheNodeInTheirOrder) {
    const ShadingNodeDescription node = described(R"({
        "name": "a", "type": "paint",
        "parameters": {"z": 1, "b": {"x": 1}, "c.d": [1.5, 2], "e": "text"}
    })");
    EXPECT_THAT(node.getParameterNames(), ElementsAre("z", "b", "c.d", "e"));
    EXPECT_THAT(node.getParameter("z"), IsWritten("1"));
    EXPECT_THAT(node.getParameter("b"), IsWritten(R"({"x": 1})"));
    EXPECT_THAT(node.getParameter("c.d"), IsWritten("[1.5, 2]"));
    EXPECT_FALSE(node.getParameter("b.x"));
    EXPECT_FALSE(node.getParameter("absent"));
}

TEST(ShadingNodeParameters, CountWhenTheyAreNull) {
    const ShadingNodeDescription node =
        described(R"({"name": "a", "type": "paint", "parameters": {"n": null}})");
    EXPECT_THAT(node.getParameterNames(), ElementsAre("n"));
    EXPECT_FALSE(node.getParameter("n"));
}

TEST(ShadingNodeParameters, AreNoneWhenTheyAreNoGroup) {
    const ShadingNodeDescription node =
        described(R"({"name": "a", "type": "paint", "parameters": "x"})");
    EXPECT_TRUE(node.isValid());
    EXPECT_THAT(node.getParameterNames(), IsEmpty());
}

TEST(ShadingNodeParameters, ShareTheirValues) {
    const GroupAttribute group =
        writtenGroup(R"({"name": "a", "type": "paint", "parameters": {"x": [1, 2, 3]}})");
    const ShadingNodeDescription node(group, nullptr);
    EXPECT_EQ(group.getChildByName("parameters.x").handle(), node.getParameter("x").handle());
}

TEST(ShadingNodeParameters, AreCopiedIntoAListInPlaceOfWhatWasThere) {
    const ShadingNodeDescription node = described(
        R"({"name": "a", "type": "paint", "parameters": {"x": 1}, "connections": {"in": "out@b"}})");
    std::vector<std::string> names = {"old", "older"};
    node.getParameterNames(names);
    EXPECT_THAT(names, ElementsAre("x"));
    node.getConnectionNames(names);
    EXPECT_THAT(names, ElementsAre("in"));
}

TEST(ShadingNodeOverrides, ReplaceAValueInItsPlace) {
    const Overrides overrides = {{"x", StringAttribute("new")}};
    const ShadingNodeDescription node = described(
        R"({"name": "a", "type": "paint", "parameters": {"y": 1, "x": 2, "z": 3}})", &overrides);
    EXPECT_THAT(node.getParameterNames(), ElementsAre("y", "x", "z"));
    EXPECT_EQ(overrides.at("x").handle(), node.getParameter("x").handle());
    EXPECT_THAT(node.getParameter("y"), IsWritten("1"));
}

TEST(ShadingNodeOverrides, AddParametersAtTheEndByTheirNames) {
    const Overrides overrides = {
        {"q", IntAttribute(1)}, {"b", IntAttribute(2)}, {"y", IntAttribute(3)}, {"c", Attribute()}};
    const ShadingNodeDescription node =
        described(R"({"name": "a", "type": "paint", "parameters": {"z": 1, "y": 2}})", &overrides);
    EXPECT_THAT(node.getParameterNames(), ElementsAre("z", "y", "b", "c", "q"));
    EXPECT_THAT(node.getParameter("b"), IsWritten("2"));
    EXPECT_FALSE(node.getParameter("c"));
}

TEST(ShadingNodeOverrides, AreTakenByANodeWithoutParameters) {
    const Overrides overrides = {{"x", IntAttribute(1)}};
    EXPECT_THAT(described(R"({"name": "a", "type": "paint"})", &overrides).getParameterNames(),
                ElementsAre("x"));
}
