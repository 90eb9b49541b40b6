// SPDX-License-Identifier: Apache-2.0
// The lens of a camera at one time, from its "geometry" group alone.
#include "support/Threads.h"
#include "unit/Camera/CameraWords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using ovtest::lensOf;

namespace {

using Floats = std::array<float, 7>;

CameraGeometry at(const GroupAttribute& geometry, float time) {
    return GetInterpolatedCameraGeometryFromAttr(geometry, time);
}

GroupAttribute geometryOf(const std::string& name, const Attribute& value) {
    return GroupBuilder().set(name, value).build();
}

Attribute zoom() {
    return DoubleAttribute(TimedSamples<double>{{-1.0F, {10}}, {1.0F, {30}}, {3.0F, {20}}});
}

}  // namespace

TEST(CameraGeometry, OfANullGroupIsAllZerosAndPerspective) {
    EXPECT_EQ(Floats{}, lensOf(at(GroupAttribute(), 0)));
    EXPECT_FALSE(at(GroupAttribute(), 0).orthographic);
}

TEST(CameraGeometry, OfAnEmptyGroupIsAllZerosAndPerspective) {
    const GroupAttribute empty = GroupBuilder().build();
    ASSERT_TRUE(empty.isValid());
    EXPECT_EQ(Floats{}, lensOf(at(empty, 0)));
    EXPECT_FALSE(at(empty, 0).orthographic);
}

TEST(CameraGeometry, HasTheSevenValuesNarrowedToFloat) {
    Floats expected{};
    for (std::size_t i = 0; i < expected.size(); ++i) {
        expected[i] = static_cast<float>(ovtest::lensValue(ovtest::kLensNames[i]));
    }
    EXPECT_EQ(expected, lensOf(at(ovtest::lens(), 0)));
}

TEST(CameraGeometry, NeedsNoneOfTheSevenAndLeavesAMissingOneAtZero) {
    for (std::size_t i = 0; i < ovtest::kLensNames.size(); ++i) {
        Floats expected{};
        expected[i] = 2.5F;
        EXPECT_EQ(expected, lensOf(at(geometryOf(ovtest::kLensNames[i], DoubleAttribute(2.5)), 0)))
            << ovtest::kLensNames[i];
    }
}

TEST(CameraGeometry, TakesAValueThatIsNoDoubleOrHasNoValuesAsZero) {
    for (const Attribute& wrong : std::vector<Attribute>{FloatAttribute(2.0F),
                                                         IntAttribute(2),
                                                         StringAttribute("2"),
                                                         GroupBuilder().build(),
                                                         Attribute(),
                                                         DoubleAttribute(std::vector<double>())}) {
        for (const char* const name : ovtest::kLensNames) {
            EXPECT_EQ(Floats{}, lensOf(at(geometryOf(name, wrong), 0))) << name;
        }
    }
}

TEST(CameraGeometry, IsLinearBetweenSamplesAndConstantOutsideThem) {
    struct Row {
        float time;
        float value;
    };
    for (const char* const name : ovtest::kLensNames) {
        const GroupAttribute geometry =
            GroupBuilder().update(ovtest::lens()).set(name, zoom()).build();
        const auto place = static_cast<std::size_t>(
            std::find(ovtest::kLensNames.begin(), ovtest::kLensNames.end(), std::string(name)) -
            ovtest::kLensNames.begin());
        for (const Row& row : {Row{-100, 10},
                               Row{-1, 10},
                               Row{-0.5F, 15},
                               Row{0, 20},
                               Row{1, 30},
                               Row{2.5F, 22.5F},
                               Row{3, 20},
                               Row{100, 20}}) {
            EXPECT_EQ(row.value, lensOf(at(geometry, row.time))[place]) << name << row.time;
        }
    }
}

TEST(CameraGeometry, InterpolatesInDoubleAndNarrowsAtTheEnd) {
    const DoubleAttribute huge(TimedSamples<double>{{0.0F, {16777216}}, {1.0F, {16777218}}});
    EXPECT_EQ(16777216.0F, at(geometryOf("far", huge), 0.25F).far);
    const DoubleAttribute opposite(TimedSamples<double>{{0.0F, {1e40}}, {1.0F, {-1e40}}});
    EXPECT_EQ(0.0F, at(geometryOf("far", opposite), 0.5F).far);
}

TEST(CameraGeometry, TakesTheFirstOfManyValuesOfASample) {
    const DoubleAttribute many(TimedSamples<double>{{0.0F, {1, 50}}, {1.0F, {2, 60}}});
    EXPECT_EQ(1.5F, at(geometryOf("fov", many), 0.5F).fov);
}

TEST(CameraGeometry, IsOrthographicWhenItsProjectionIsExactlyThat) {
    struct Row {
        const char* name;
        Attribute value;
        bool orthographic;
    };
    const StringAttribute none{std::vector<std::string>()};
    for (const Row& row : {Row{"exactly", StringAttribute("orthographic"), true},
                           Row{"capital", StringAttribute("Orthographic"), false},
                           Row{"capitals", StringAttribute("ORTHOGRAPHIC"), false},
                           Row{"a space behind", StringAttribute("orthographic "), false},
                           Row{"a part", StringAttribute("ortho"), false},
                           Row{"perspective", StringAttribute("perspective"), false},
                           Row{"no text", StringAttribute(""), false},
                           Row{"no values", none, false},
                           Row{"an int", IntAttribute(1), false},
                           Row{"missing", Attribute(), false}}) {
        EXPECT_EQ(row.orthographic, at(geometryOf("projection", row.value), 0).orthographic)
            << row.name;
    }
}

TEST(CameraGeometry, ReadsItsProjectionWithinTheGroup) {
    const auto nested = geometryOf("geometry.projection", StringAttribute("orthographic"));
    EXPECT_FALSE(at(nested, 0).orthographic);
    EXPECT_TRUE(at(nested.getChild<GroupAttribute>("geometry"), 0).orthographic);
}

TEST(CameraGeometry, TakesTheProjectionNearestTimeZeroAtAnyTime) {
    const StringAttribute changing(
        TimedSamples<std::string>{{0.0F, {"orthographic"}}, {10.0F, {"perspective"}}});
    EXPECT_TRUE(at(geometryOf("projection", changing), 10).orthographic);
}

TEST(CameraGeometry, IsGivenToManyThreadsAtOnce) {
    const GroupAttribute geometry = geometryOf("fov", zoom());
    std::vector<float> seen(8);
    ovtest::onThreads(8, [&](int i) {
        seen[static_cast<std::size_t>(i)] = at(geometry, -1.0F + static_cast<float>(i) / 4).fov;
    });
    EXPECT_THAT(seen, testing::ElementsAre(10, 12.5F, 15, 17.5F, 20, 22.5F, 25, 27.5F));
}
