// SPDX-License-Identifier: Apache-2.0
#include "ProceduralTest.h"
#include "support/FakeProducer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>

using namespace ovtest;
using Sylvar3::internal::OvAttribute::TimedSamples;
using testing::ElementsAre;

class ScenegraphAttrArguments : public ProceduralTest {
protected:
    /// What is always there behind the arguments.
    static void appendTail(Children& children) {
        children.insert(children.end(),
                        {{"frame", FloatAttribute(1.0F)},
                         {"shutter", FloatAttribute({0.0F, 0.0F}, 2)},
                         {"cropwindow", FloatAttribute({0.0F, 0.0F, 0.0F, 0.0F}, 4)},
                         {"varlinFullName", StringAttribute("/root/a")}});
    }
};

TEST_F(ScenegraphAttrArguments, OfANullOrEmptyGroupAreFrameShutterCropWindowAndThePath) {
    Children tail;
    appendTail(tail);
    expectEqual(group(tail), attributeForm(group({})));
    expectEqual(group(tail), attributeForm(GroupAttribute()));
}

TEST_F(ScenegraphAttrArguments, HaveTheContextAsFloatsWithItsTuples) {
    context = {-24, -0.25F, 0.1F, {0.25F, 1, 0.5F, 2}, 640, 480};
    const GroupAttribute read = attributeForm(group({}));
    expectEqual(FloatAttribute(-24.0F), read.getChildByName("frame"));
    expectEqual(FloatAttribute({-0.25F, 0.1F}, 2), read.getChildByName("shutter"));
    expectEqual(FloatAttribute({0.25F, 1, 0.5F, 2}, 4), read.getChildByName("cropwindow"));
}

TEST_F(ScenegraphAttrArguments, HaveANumberOfAnyBitsAsItIs) {
    const float nan = -std::numeric_limits<float>::quiet_NaN();
    context.shutterOpen = nan;
    context.shutterClose = std::numeric_limits<float>::infinity();
    context.cropWindow = {-0.0F, std::numeric_limits<float>::denorm_min(), 0.1F, -1e38F};
    const Children numbers = {{"d", DoubleAttribute({0.1, 1.0 / 3, -1e-310})},
                              {"i", IntAttribute(INT_MIN)}};
    const GroupAttribute read = attributeForm(group({{"args", group(numbers)}}));
    expectEqual(group(numbers, true), read.getChildByName("args"));
    expectEqual(FloatAttribute({nan, std::numeric_limits<float>::infinity()}, 2),
                read.getChildByName("shutter"));
    expectEqual(FloatAttribute({-0.0F, std::numeric_limits<float>::denorm_min(), 0.1F, -1e38F}, 4),
                read.getChildByName("cropwindow"));
}

// An oddity: floats do not hold all ints.
TEST_F(ScenegraphAttrArguments, RoundTheFrameToAFloat) {
    context.frame = 16777217;
    expectEqual(FloatAttribute(16777216.0F), attributeForm(group({})).getChildByName("frame"));
    context.frame = INT_MAX;
    expectEqual(FloatAttribute(2147483648.0F), attributeForm(group({})).getChildByName("frame"));
}

TEST_F(ScenegraphAttrArguments, KeepTypesTuplesSamplesAndNesting) {
    const Children args = {
        {"i", IntAttribute(TimedSamples<std::int32_t>{{0, {1, 2}}, {1, {3, 4}}}, 2)},
        {"f", FloatAttribute(TimedSamples<float>{{-0.5F, {1, 2, 3}}, {0.5F, {4, 5, 6}}}, 3)},
        {"d", DoubleAttribute(std::vector<double>())},
        {"s", StringAttribute(Strings{"a b", "it's", "", "\x1b<&>\"\n\xff"}, 2)},
        {"null", Attribute()},
        {"g",
         group({{"h", group({{"x.y", IntAttribute(7)}}, true)}, {"e", group({}, true)}}, true)}};
    Children expected = {{"args", group(args, true)}};
    appendTail(expected);
    expectEqual(group(expected, false), attributeForm(group({{"args", group(args)}})));
}

TEST_F(ScenegraphAttrArguments, InheritWithinTheArgumentsAndNotWithout) {
    const GroupAttribute read = attributeForm(group({{"args", group({})}}, true));
    EXPECT_FALSE(read.getGroupInherit());
    EXPECT_TRUE(read.getChild<GroupAttribute>("args").getGroupInherit());
}

TEST_F(ScenegraphAttrArguments, HaveThoseOfTheSystemBesideTheUsers) {
    const Children system = {
        {"b", StringAttribute(TimedSamples<std::string>{{-1, {"x"}}, {1, {"y"}}})},
        {"__c", IntAttribute(2)},
        {"g", group({{"__d", StringAttribute("z")}}, false)},
        {"null", Attribute()}};
    Children expected = {{"args", group({{"a", IntAttribute(1)}}, true)}};
    expected.insert(expected.end(), system.begin(), system.end());
    appendTail(expected);
    expectEqual(group(expected),
                attributeForm(group(
                    {{"systemArgs", group(system)}, {"args", group({{"a", IntAttribute(1)}})}})));
    EXPECT_EQ(Strings(), assets.take());
}

TEST_F(ScenegraphAttrArguments, HaveThoseOfTheSystemWithoutTheUsersToo) {
    Children expected = {{"b", IntAttribute(2)}};
    appendTail(expected);
    const GroupAttribute system = group({{"b", IntAttribute(2)}});
    expectEqual(group(expected), attributeForm(group({{"systemArgs", system}})));
    expectEqual(group(expected),
                attributeForm(group({{"systemArgs", system}, {"args", IntAttribute(1)}})));
}

TEST_F(ScenegraphAttrArguments, PassOverWhatIsNoGroup) {
    Children expected;
    appendTail(expected);
    expectEqual(group(expected),
                attributeForm(group({{"args", StringAttribute("-a 1")},
                                     {"systemArgs", StringAttribute("-b 2")},
                                     {"other", group({{"c", IntAttribute(3)}})}})));
}

// An oddity: what comes later takes the place, without a word.
TEST_F(ScenegraphAttrArguments, TakeThePlaceOfSystemArgumentsOfTheirNames) {
    const GroupAttribute read = attributeForm(
        group({{"args", group({{"a", IntAttribute(1)}})},
               {"systemArgs",
                group({{"varlinFullName", IntAttribute(1)}, {"frame", IntAttribute(2)}})}}));
    EXPECT_THAT(namesOf(read),
                ElementsAre("args", "varlinFullName", "frame", "shutter", "cropwindow"));
    expectEqual(StringAttribute("/root/a"), read.getChildByName("varlinFullName"));
    expectEqual(FloatAttribute(1.0F), read.getChildByName("frame"));
}

// An oddity: the user's arguments are gone.
TEST_F(ScenegraphAttrArguments, LoseTheUsersToASystemArgumentOfThatName) {
    const GroupAttribute read =
        attributeForm(group({{"args", group({{"a", IntAttribute(1)}})},
                             {"systemArgs", group({{"args", StringAttribute("x")}})}}));
    expectEqual(StringAttribute("x"), read.getChildByIndex(0));
    EXPECT_THAT(namesOf(read),
                ElementsAre("args", "frame", "shutter", "cropwindow", "varlinFullName"));
}

TEST_F(ScenegraphAttrArguments, NeverTellTheCallback) {
    assets.failFor("bad");
    const GroupAttribute attrs = group({{"args",
                                         group({{"n", StringAttribute(Strings{"a", "bad", "c"})},
                                                {"extraArgs", StringAttribute("bad")},
                                                {"g", group({{"m", StringAttribute("bad")}})}})}});
    const GroupAttribute read = attributeForm(attrs);
    EXPECT_EQ(Strings(), takeTold());
    callback = nullptr;
    expectEqual(read, attributeForm(attrs));
    expectEqual(StringAttribute(Strings{"a", "bad", "c"}), read.getChildByName("args.n"));
    expectEqual(StringAttribute("bad"), read.getChildByName("args.g.m"));
}

TEST_F(ScenegraphAttrArguments, EndInThePathOfTheProducerWhateverIsInIt) {
    for (const std::string path : {"/root/a", "/root/it's a/\"<&>", ""}) {
        producer = new FakeProducer(path);
        expectEqual(StringAttribute(path),
                    attributeForm(group({})).getChildByName("varlinFullName"));
    }
}

TEST_F(ScenegraphAttrArguments, ThrowWhereSharedGroupsWouldBeWrittenVeryManyTimes) {
    GroupAttribute shared = group({{"a", IntAttribute(1)}});
    for (int i = 0; i < 60; ++i) {
        shared = group({{"a", shared}, {"b", shared}});
    }
    const GroupAttribute attrs = group({{"args", shared}});
    EXPECT_THROW(BuildScenegraphAttrProceduralArgumentsString(producer, context, attrs, callback),
                 std::length_error);
    EXPECT_EQ(kTail, classic(attrs)) << "the line has no groups";
}

class ScenegraphAttrPath : public ProceduralTest, public testing::WithParamInterface<Behind> {};

INSTANTIATE_TEST_SUITE_P(,
                         ScenegraphAttrPath,
                         testing::Values(Behind::Group, Behind::Runtime),
                         nameOf);

TEST_P(ScenegraphAttrPath, IsThatOfTheLocation) {
    const auto top = openScene(StaticScene().at("/root/world/geo/a"), GetParam());
    for (const std::string path : {"/root", "/root/world", "/root/world/geo/a"}) {
        producer = top->getProducerByPath(path, false);
        expectEqual(StringAttribute(path),
                    attributeForm(group({})).getChildByName("varlinFullName"));
    }
}
