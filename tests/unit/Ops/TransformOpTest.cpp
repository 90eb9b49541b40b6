// SPDX-License-Identifier: Apache-2.0
#include "support/LocationReading.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <string>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

using Doubles = std::vector<double>;

StaticScene scene() {
    return StaticScene()
        .set("/root/a", "xform.translate", DoubleAttribute(Doubles{1, 2, 3}, 3))
        .at("/root/b");
}

/// Over /root/a, which is moved, and /root/b, which is not.
std::shared_ptr<SylvarRuntime::Client> transform(Args arguments) {
    return openOver(scene(), "transform", arguments.set("paths", "/root/*"));
}

Attribute doubles(const Doubles& values) {
    return DoubleAttribute(values);
}

}  // namespace

TEST(Transform, WritesItsPartsInTheirOrder) {
    const auto client = transform(Args()
                                      .set("scale", doubles({2, 2, 2}))
                                      .set("matrix", doubles(translation(7, 8, 9)))
                                      .set("rotate", doubles({90, 0, 1, 0}))
                                      .set("translate", doubles({4, 5, 6})));
    for (const char* const path : {"/root/a", "/root/b"}) {
        EXPECT_THAT(namesAt(*client, path, "xform"),
                    ElementsAre("translate", "rotate", "scale", "matrix"));
        EXPECT_EQ((Doubles{4, 5, 6}), doublesAt(*client, path, "xform.translate"));
        EXPECT_EQ((Doubles{90, 0, 1, 0}), doublesAt(*client, path, "xform.rotate"));
        EXPECT_EQ((Doubles{2, 2, 2}), doublesAt(*client, path, "xform.scale"));
        EXPECT_EQ(translation(7, 8, 9), doublesAt(*client, path, "xform.matrix"));
    }
    EXPECT_THAT(namesAt(*client, "/root"), ElementsAre());
}

TEST(Transform, ReadsNumbersOfAnyKindAsDoubles) {
    for (const Attribute& value : {Attribute(IntAttribute(std::vector<int>{1, 2, 3})),
                                   Attribute(FloatAttribute(std::vector<float>{1, 2, 3}, 3)),
                                   doubles({1, 2, 3})}) {
        const auto client = transform(Args().set("translate", value));
        EXPECT_EQ((Doubles{1, 2, 3}), doublesAt(*client, "/root/b", "xform.translate"));
        EXPECT_EQ(3,
                  castAttribute<DoubleAttribute>(attributeAt(*client, "/root/b", "xform.translate"))
                      .getTupleSize());
    }
}

TEST(Transform, SharesOneValueAmongAllItsLocations) {
    const auto client = transform(Args().set("translate", doubles({4, 5, 6})));
    EXPECT_EQ(attributeAt(*client, "/root/a", "xform").handle(),
              attributeAt(*client, "/root/b", "xform").handle());
}

TEST(Transform, SpreadsItsNumbersOverSampleTimes) {
    const auto client = transform(Args()
                                      .set("sampleTimes", doubles({-0.25, 0, 0.25}))
                                      .set("translate", doubles({1, 0, 0, 2, 0, 0, 3, 0, 0}))
                                      .set("scale", doubles({2, 2, 2})));
    const auto moved =
        castAttribute<DoubleAttribute>(attributeAt(*client, "/root/a", "xform.translate"));
    ASSERT_EQ(3, moved.getNumberOfTimeSamples());
    EXPECT_EQ(-0.25F, moved.getSampleTime(0));
    EXPECT_EQ(0.25F, moved.getSampleTime(2));
    EXPECT_EQ((Doubles{1, 0, 0}), doublesAt(*client, "/root/a", "xform.translate", -0.25F));
    EXPECT_EQ((Doubles{2, 0, 0}), doublesAt(*client, "/root/a", "xform.translate", 0.0F));
    EXPECT_EQ((Doubles{3, 0, 0}), doublesAt(*client, "/root/a", "xform.translate", 0.25F));
    EXPECT_EQ(1,
              castAttribute<DoubleAttribute>(attributeAt(*client, "/root/a", "xform.scale"))
                  .getNumberOfTimeSamples());
}

TEST(Transform, TakesTheSamplesOfItsArguments) {
    const DoubleAttribute moving(TimedSamples<double>{{0.0F, {1, 0, 0}}, {0.5F, {2, 0, 0}}}, 3);
    const auto client = transform(Args().set("translate", moving));
    EXPECT_EQ((Doubles{1, 0, 0}), doublesAt(*client, "/root/b", "xform.translate", 0.0F));
    EXPECT_EQ((Doubles{2, 0, 0}), doublesAt(*client, "/root/b", "xform.translate", 0.5F));
}

TEST(Transform, ReplacesTheTransformThatIsThere) {
    const auto client = transform(Args().set("scale", doubles({2, 2, 2})));
    EXPECT_THAT(namesAt(*client, "/root/a", "xform"), ElementsAre("scale"));
}

TEST(Transform, AddsItselfInFrontSoThatItActsLast) {
    const auto client = transform(Args()
                                      .set("mode", "add")
                                      .set("translate", doubles({4, 5, 6}))
                                      .set("scale", doubles({2, 2, 2})));
    EXPECT_THAT(namesAt(*client, "/root/a", "xform"),
                ElementsAre("translate_1", "scale", "translate"));
    EXPECT_EQ((Doubles{4, 5, 6}), doublesAt(*client, "/root/a", "xform.translate_1"));
    EXPECT_EQ((Doubles{1, 2, 3}), doublesAt(*client, "/root/a", "xform.translate"));
    EXPECT_THAT(namesAt(*client, "/root/b", "xform"), ElementsAre("translate", "scale"));
}

TEST(Transform, AddsItselfAsOftenAsItIsTold) {
    constexpr int kOften = 1000;
    OpTree tree;
    tree.op("0", "scene", Args().set("tree", scene().group()));
    const Args add = Args().set("paths", "/root/a").set("mode", "add");
    for (int i = 1; i <= kOften; ++i) {
        tree.op(std::to_string(i),
                "transform",
                Args(add).set("translate", doubles({i * 1.0, 0, 0})),
                {std::to_string(i - 1)});
    }
    const auto client = tree.open();
    const auto names = namesAt(*client, "/root/a", "xform");
    ASSERT_EQ(kOften + 1U, names.size());
    EXPECT_EQ(names.size(), std::set<std::string>(names.begin(), names.end()).size());
    EXPECT_THAT(names, Each(StartsWith("translate")));
    EXPECT_EQ((Doubles{kOften, 0, 0}), doublesAt(*client, "/root/a", "xform." + names.front()));
    EXPECT_EQ((Doubles{1, 2, 3}), doublesAt(*client, "/root/a", "xform." + names.back()));
}

TEST(Transform, AddsItselfBehindAnOriginWhichForgetsWhatIsInFront) {
    const GroupAttribute own({{"matrix", doubles(translation(1, 1, 1))},
                              {"originReset", IntAttribute(1)},
                              {"scale", doubles({3, 3, 3})}},
                             false);
    const auto client = openOver(
        StaticScene().set("/root/a", "xform", own),
        "transform",
        Args().set("paths", "/root/a").set("mode", "add").set("translate", doubles({1, 0, 0})));
    EXPECT_THAT(namesAt(*client, "/root/a", "xform"),
                ElementsAre("matrix", "originReset", "translate", "scale"));
}

TEST(Transform, AddsItselfInFrontOfAnOriginThatIsNoNumber) {
    for (const Attribute& origin : {Attribute(), Attribute(StringAttribute("x"))}) {
        const GroupAttribute own(
            {{"translate", doubles({1, 0, 0})}, {"origin", origin}, {"scale", doubles({3, 3, 3})}},
            false);
        const auto client = openOver(
            StaticScene().set("/root/a", "xform", own),
            "transform",
            Args().set("paths", "/root/a").set("mode", "add").set("rotate", doubles({1, 0, 0, 1})));
        EXPECT_THAT(namesAt(*client, "/root/a", "xform"),
                    ElementsAre("rotate", "translate", "origin", "scale"));
    }
}

TEST(Transform, TellsWhatIsWrongWithItsArguments) {
    struct Row {
        Args arguments;
        const char* reason;
    };
    const std::vector<Row> rows = {
        {Args(), "none of \"translate\", \"rotate\", \"scale\" and \"matrix\" is given"},
        {Args().set("translate", doubles({1, 2})),
         "argument \"translate\": expected 3 numbers, found 2"},
        {Args().set("translate", "left"), "argument \"translate\": expected numbers, found string"},
        {Args().set("matrix", doubles({})), "argument \"matrix\": expected 16 numbers, found 0"},
        {Args().set("sampleTimes", doubles({0, 1})).set("rotate", doubles(Doubles(12, 0))),
         "argument \"rotate\": expected 4 numbers for all, or for each of the 2 sample times, "
         "found 12"},
        {Args().set("sampleTimes", doubles({0, 1})).set("scale", doubles({})),
         "argument \"scale\": expected 3 numbers for all, or for each of the 2 sample times, "
         "found 0"},
        {Args().set("sampleTimes", doubles({1, 0})).set("scale", doubles({1, 1, 1})),
         "argument \"sampleTimes\": expected times one after the other"},
        {Args().set("sampleTimes", doubles({0, 0})).set("scale", doubles({1, 1, 1})),
         "argument \"sampleTimes\": expected times one after the other"},
        {Args()
             .set("sampleTimes", doubles({0, std::numeric_limits<double>::infinity()}))
             .set("scale", doubles({1, 1, 1})),
         "argument \"sampleTimes\": expected times one after the other"},
        {Args()
             .set("sampleTimes", doubles({0, 1}))
             .set("scale",
                  DoubleAttribute(TimedSamples<double>{{0.0F, {1, 1, 1}}, {1.0F, {2, 2, 2}}}, 3)),
         "argument \"scale\": expected one sample, since \"sampleTimes\" are given"},
        {Args().set("translate", doubles({1, 2, 3})).set("mode", "append"),
         "argument \"mode\": expected one of \"replace\" \"add\", found \"append\""},
        {Args().set("translation", doubles({1, 2, 3})), "did you mean \"translate\"?"},
    };
    for (const Row& row : rows) {
        const auto client = transform(row.arguments);
        EXPECT_THAT(errorAt(*client, "/root"), HasSubstr(row.reason));
        EXPECT_EQ((Doubles{1, 2, 3}), doublesAt(*client, "/root/a", "xform.translate"));
    }
}
