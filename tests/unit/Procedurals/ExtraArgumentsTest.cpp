// SPDX-License-Identifier: Apache-2.0
#include "ProceduralTest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

using namespace ovtest;
using Sylvar3::internal::OvAttribute::TimedSamples;
using testing::ElementsAre;

class ExtraArguments : public ProceduralTest {};

TEST_F(ExtraArguments, StandThereWithABlankOnEachSideAndWithoutTheirName) {
    EXPECT_EQ(" -foo 1 ", classicArgs({{"extraArgs", StringAttribute("-foo 1")}}));
    EXPECT_EQ(" -foo 1  -frame 1 -shutter 0 0 -cropwindow 0 0 0 0",
              classic(group({{"args", group({{"extraArgs", StringAttribute("-foo 1")}})}})));
    EXPECT_EQ(" -a 1 -foo 1  -b  -c 2",
              classicArgs({{"a", IntAttribute(1)},
                           {"extraArgs", StringAttribute("-foo 1")},
                           {"extraArgs2", StringAttribute("-b")},
                           {"c", IntAttribute(2)}}));
}

TEST_F(ExtraArguments, AreThoseWhoseNameBeginsSo) {
    for (const std::string name : {"extraArgs", "extraArgs1", "extraArgsOfMine", "extraArgs.x"}) {
        EXPECT_EQ(" x y ", classicArgs({{name, StringAttribute("x y")}})) << name;
    }
    for (const std::string name :
         {"extraArg", "extraargs", "ExtraArgs", "_extraArgs", " extraArgs"}) {
        EXPECT_EQ(" -" + name + " 'x y'", classicArgs({{name, StringAttribute("x y")}}));
    }
}

TEST_F(ExtraArguments, AreNeverQuoted) {
    EXPECT_EQ("  ", classicArgs({{"extraArgs", StringAttribute("")}}));
    EXPECT_EQ(" it's 'a b ", classicArgs({{"extraArgs", StringAttribute("it's 'a b")}}));
}

TEST_F(ExtraArguments, AreTheFirstValueAloneOfTheSampleNearestTimeZero) {
    EXPECT_EQ(" a ", classicArgs({{"extraArgs", StringAttribute(Strings{"a", "b", "c"})}}));
    const TimedSamples<std::string> samples = {{-1, {"a", "b"}}, {0.5F, {"c", "d"}}};
    EXPECT_EQ(" c ", classicArgs({{"extraArgs", StringAttribute(samples)}}));
    EXPECT_THAT(assets.take(), ElementsAre("a 1 true", "c 1 true"));
}

TEST_F(ExtraArguments, AreNotThereWithoutValues) {
    EXPECT_EQ("",
              classicArgs({{"extraArgs", StringAttribute(Strings())},
                           {"extraArgs2", StringAttribute(TimedSamples<std::string>())}}));
    EXPECT_EQ(Strings(), assets.take());
}

TEST_F(ExtraArguments, AreStringsAlone) {
    EXPECT_EQ(" -extraArgs 1 -extraArgsF 0.5 -extraArgsD 2",
              classicArgs({{"extraArgs", IntAttribute(1)},
                           {"extraArgsF", FloatAttribute(0.5F)},
                           {"extraArgsD", DoubleAttribute(2.0)}}));
}

TEST_F(ExtraArguments, AreResolvedForTheFrameWithTheFlag) {
    context.frame = 7;
    assets.answer("asset", "/a b");
    EXPECT_EQ(" /a b  -frame 7 -shutter 0 0 -cropwindow 0 0 0 0",
              classic(group({{"args", group({{"extraArgs", StringAttribute("asset")}})}})));
    EXPECT_THAT(assets.take(), ElementsAre("asset 7 true"));
}

// An oddity: any other argument would end here, and its message has two blanks and the value.
TEST_F(ExtraArguments, StandThereUnresolvedAndTellTheirNameWhenTheyCannotBeResolved) {
    assets.failFor("-foo bad");
    EXPECT_EQ(" -foo bad  -a 1",
              classicArgs({{"extraArgsX", StringAttribute("-foo bad")}, {"a", IntAttribute(1)}}));
    ASSERT_EQ(1U, told().size());
    EXPECT_EQ("asset resolve failed on 'extraArgsX' when building an procedural.",
              told().front().first);
    EXPECT_EQ(producer, told().front().second);
    told().clear();
}

TEST_F(ExtraArguments, StandThereUnresolvedWithoutACallbackToo) {
    callback = nullptr;
    assets.failFor("bad").failFor("worse", [] { throw 7; });
    EXPECT_EQ(" bad  worse ",
              classicArgs({{"extraArgs", StringAttribute("bad")},
                           {"extraArgs2", StringAttribute("worse")}}));
}

TEST_F(ExtraArguments, LetWhatTheCallbackThrowsTravel) {
    assets.failFor("bad");
    callback = [](const std::string& message, SYLVAR::GeometryProducerPtr) {
        throw std::domain_error(message);
    };
    EXPECT_THROW(classicArgs({{"extraArgs", StringAttribute("bad")}}), std::domain_error);
}
