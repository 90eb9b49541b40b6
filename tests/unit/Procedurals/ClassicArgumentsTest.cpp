// SPDX-License-Identifier: Apache-2.0
#include "ProceduralTest.h"
#include "support/FakeProducer.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

using namespace ovtest;
using Sylvar3::internal::OvAttribute::TimedSamples;

class ClassicArguments : public ProceduralTest {};

TEST_F(ClassicArguments, OfANullOrEmptyGroupAreFrameShutterAndCropWindow) {
    EXPECT_EQ(" -frame 1 -shutter 0 0 -cropwindow 0 0 0 0", classic(GroupAttribute()));
    EXPECT_EQ(" -frame 1 -shutter 0 0 -cropwindow 0 0 0 0", classic(group({})));
}

TEST_F(ClassicArguments, EndInFrameShutterAndCropWindowInTheCallersOrder) {
    context = {-24, -0.25F, 0.5F, {0.25F, 1, 0.5F, 2}, 640, 480};
    EXPECT_EQ(" -frame -24 -shutter -0.25 0.5 -cropwindow 0.25 1 0.5 2", classic(group({})));
}

TEST_F(ClassicArguments, HaveAShutterOfTwelveDigits) {
    context.shutterClose = 0.1F;
    EXPECT_EQ(" -frame 1 -shutter 0 0.10000000149 -cropwindow 0 0 0 0", classic(group({})));
}

TEST_F(ClassicArguments, NeverSpeakOfTheResolution) {
    context.xres = 640;
    context.yres = 480;
    EXPECT_EQ(kTail, classic(group({})));
}

TEST_F(ClassicArguments, LeaveTheContextAsItIs) {
    context = {7, 0.5F, 1, {1, 2, 3, 4}, 640, 480};
    classic(group({{"args", group({{"a", IntAttribute(1)}})}}));
    EXPECT_EQ(7, context.frame);
    EXPECT_EQ(0.5F, context.shutterOpen);
    EXPECT_EQ(1.0F, context.shutterClose);
    EXPECT_EQ((std::array<float, 4>{1, 2, 3, 4}), context.cropWindow);
    EXPECT_EQ(640, context.xres);
    EXPECT_EQ(480, context.yres);
}

TEST_F(ClassicArguments, StandInTheOrderOfTheGroup) {
    EXPECT_EQ(" -z 1 -a b -m 0.5 -d -2",
              classicArgs({{"z", IntAttribute(1)},
                           {"a", StringAttribute("b")},
                           {"m", FloatAttribute(0.5F)},
                           {"d", DoubleAttribute(-2.0)}}));
}

TEST_F(ClassicArguments, AreSeparatedBySingleBlanksWithinAndWithoutTheirTuples) {
    EXPECT_EQ(" -a 1 2.5", classicArgs({{"a", FloatAttribute({1.0F, 2.5F})}}));
    EXPECT_EQ(" -a 1 2 3 4", classicArgs({{"a", FloatAttribute({1, 2, 3, 4}, 2)}}));
    EXPECT_EQ(" -a 1 2 3", classicArgs({{"a", DoubleAttribute({1, 2, 3}, 2)}}));
    EXPECT_EQ(" -a -2147483648 0 2147483647",
              classicArgs({{"a", IntAttribute({INT_MIN, 0, INT_MAX}, 3)}}));
}

TEST_F(ClassicArguments, LoseTheirNamesTooWhenTheyHaveNoValues) {
    EXPECT_EQ(" -b 1",
              classicArgs({{"f", FloatAttribute(std::vector<float>())},
                           {"d", DoubleAttribute(std::vector<double>(), 3)},
                           {"i", IntAttribute(TimedSamples<std::int32_t>())},
                           {"two", IntAttribute(TimedSamples<std::int32_t>{{0.0F, {}}, {1, {}}})},
                           {"s", StringAttribute(Strings())},
                           {"n", StringAttribute(TimedSamples<std::string>())},
                           {"b", IntAttribute(1)}}));
    EXPECT_EQ(Strings(), takeTold());
    EXPECT_EQ(Strings(), assets.take());
}

TEST_F(ClassicArguments, LeaveOutGroupsAndWhatIsInThemAndNulls) {
    EXPECT_EQ(" -b 1",
              classicArgs({{"g", group({{"x", IntAttribute(1)}, {"s", StringAttribute("y")}})},
                           {"extraArgs", group({{"s", StringAttribute("y")}})},
                           {"null", Attribute()},
                           {"b", IntAttribute(1)}}));
    EXPECT_EQ(Strings(), takeTold());
    EXPECT_EQ(Strings(), assets.take());
}

TEST_F(ClassicArguments, AreReadAtTheSampleNearestTimeZeroAndTheFirstOfEqualDistance) {
    EXPECT_EQ(
        " -f 2 -d 3 -i 5 -s c",
        classicArgs({{"f", FloatAttribute(TimedSamples<float>{{-1, {1}}, {0.5F, {2}}})},
                     {"d", DoubleAttribute(TimedSamples<double>{{0.25F, {3}}, {-0.25F, {4}}})},
                     {"i", IntAttribute(TimedSamples<std::int32_t>{{0, {5}}, {1, {6}}})},
                     {"s", StringAttribute(TimedSamples<std::string>{{9, {"b"}}, {-3, {"c"}}})}}));
}

TEST_F(ClassicArguments, TakeNamesAsTheyStand) {
    EXPECT_EQ(
        " -__hidden 1 - 2 -a.b 3 -a b 4 --x 5 -it's 6 -gr\xC3\xB6\xC3\x9F"
        "e 7",
        classicArgs({{"__hidden", IntAttribute(1)},
                     {"", IntAttribute(2)},
                     {"a.b", IntAttribute(3)},
                     {"a b", IntAttribute(4)},
                     {"-x", IntAttribute(5)},
                     {"it's", IntAttribute(6)},
                     {"gr\xC3\xB6\xC3\x9F"
                      "e",
                      IntAttribute(7)}}));
}

TEST_F(ClassicArguments, HaveThoseOfTheSystemBehindTheUsers) {
    EXPECT_EQ(std::string(" -b 1 -a 2 -extra  -c 'x y'") + kTail,
              classic(group({{"systemArgs",
                              group({{"a", IntAttribute(2)},
                                     {"extraArgsOfTheSystem", StringAttribute("-extra")},
                                     {"c", StringAttribute("x y")}})},
                             {"args", group({{"b", IntAttribute(1)}})}})));
}

// An oddity: the line has both.
TEST_F(ClassicArguments, MayHaveANameTwice) {
    EXPECT_EQ(std::string(" -a 1 -a 2 -frame 9") + kTail,
              classic(group(
                  {{"args", group({{"a", IntAttribute(1)}})},
                   {"systemArgs", group({{"a", IntAttribute(2)}, {"frame", IntAttribute(9)}})}})));
}

// An oddity: in the other form they count by themselves.
TEST_F(ClassicArguments, PassOverThoseOfTheSystemWithoutTheUsers) {
    const Attribute system = group({{"a", StringAttribute("x")}});
    EXPECT_EQ(kTail, classic(group({{"systemArgs", system}})));
    EXPECT_EQ(kTail, classic(group({{"args", StringAttribute("b")}, {"systemArgs", system}})));
    EXPECT_EQ(kTail, classic(group({{"args", Attribute()}, {"systemArgs", system}})));
    EXPECT_EQ(Strings(), assets.take());
    EXPECT_EQ(std::string(" -a x") + kTail,
              classic(group({{"args", group({})}, {"systemArgs", system}})));
}

TEST_F(ClassicArguments, PassOverSystemArgumentsThatAreNoGroup) {
    EXPECT_EQ(std::string(" -a 1") + kTail,
              classic(group({{"args", group({{"a", IntAttribute(1)}})},
                             {"systemArgs", StringAttribute("-b 2")}})));
}

TEST_F(ClassicArguments, PassOverWhatElseIsInTheGroup) {
    EXPECT_EQ(std::string(" -a 1") + kTail,
              classic(group({{"other", group({{"b", IntAttribute(2)}})},
                             {"args", group({{"a", IntAttribute(1)}})},
                             {"procedural", StringAttribute("x.so")}})));
}

TEST_F(ClassicArguments, AskNothingOfTheProducerWhenNoCameraIsWanted) {
    const boost::intrusive_ptr<FakeProducer> fake(new FakeProducer("/root/p"));
    producer = fake;
    EXPECT_EQ(std::string(" -a 1") + kTail,
              classic(group({{"args", group({{"a", IntAttribute(1)}})}})));
    EXPECT_EQ(FakeProducer::Steps(), *fake->steps);
}

TEST_F(ClassicArguments, MayBeVeryMany) {
    Children args;
    std::string expected;
    for (int i = 0; i < 20000; ++i) {
        const std::string name = "a" + std::to_string(i);
        args.emplace_back(name, IntAttribute({i, -i}));
        expected += " -" + name + " " + std::to_string(i) + " " + std::to_string(-i);
    }
    EXPECT_EQ(expected, classicArgs(args));
}
