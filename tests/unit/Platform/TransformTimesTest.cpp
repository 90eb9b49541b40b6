// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/XFormUtil.h>

#include "support/Transforms.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

using namespace ovtest;
using Sylvar3::internal::OvAttribute::FloatAttribute;
using Sylvar3::internal::OvAttribute::IntAttribute;
using Sylvar3::internal::OvAttribute::TimedSamples;
using testing::DoubleNear;
using testing::Pointwise;

namespace {

constexpr float kNoTime = std::numeric_limits<float>::quiet_NaN();
constexpr float kEndless = std::numeric_limits<float>::infinity();

double xAt(const GroupAttribute& chain, float time) {
    return matrixOf(chain, time)[12];
}

}  // namespace

TEST(TransformTimes, AreTheUnionOfAllChildrensTimes) {
    const GroupAttribute chain = group(
        {{"i0", group({{"translate", slide({{-0.25F, 1}, {0.25F, 2}})}})},
         {"i1",
          group({{"scale", doubles({1, 1, 1})}, {"translate", slide({{0.25F, 1}, {0.5F, 2}})}})}});
    EXPECT_EQ((Times{-0.25F, 0, 0.25F, 0.5F}), timesOf(chain));
}

TEST(TransformTimes, AreAscendingAndEachOnce) {
    const GroupAttribute chain =
        location({{"translate", slide({{3, 1}, {1, 2}, {3, 3}, {2, 4}})},
                  {"translate2", slide({{2, 1}, {0, 2}, {-kEndless, 3}, {2.5F, 4}})}});
    EXPECT_EQ((Times{-kEndless, 0, 1, 2, 2.5F, 3}), timesOf(chain));
}

TEST(TransformTimes, AreNeverMinusZeroAndAlwaysNumbers) {
    const GroupAttribute chain = location({{"translate", slide({{-0.0F, 1}, {kNoTime, 2}, {1, 3}})},
                                           {"translate2", slide({{0, 1}, {1, 2}})}});
    const Times times = timesOf(chain);
    EXPECT_EQ((Times{0, 1}), times);
    EXPECT_FALSE(std::signbit(times[0]));
}

TEST(TransformTimes, AreThatOfTheQuestionWhenThereIsOne) {
    const GroupAttribute chain = location({{"translate", slide({{0, 0}, {1, 2}})}});
    const auto samples = samplesOf(atTime(chain, 0.25F).attribute);
    ASSERT_EQ(1U, samples.size());
    EXPECT_EQ(0.25F, samples[0].first);
    EXPECT_EQ(0.5, samples[0].second[12]);
}

TEST(TransformTimes, GiveTheMatrixOfEachTime) {
    const GroupAttribute chain =
        group({{"i0", group({{"translate", slide({{0, 0}, {2, 4}})}})},
               {"i1", group({{"scale", timed({{1, {1, 1, 1}}, {3, {3, 1, 1}}})}})}});
    for (const auto& [time, values] : samplesOf(atExistingTimes(chain).attribute)) {
        EXPECT_EQ(values, matrixOf(chain, time)) << time;
    }
}

TEST(TransformTimes, AreOneTupleOfSixteenEach) {
    const GroupAttribute chain = location({{"translate", slide({{0, 0}, {2, 4}})}});
    const DoubleAttribute matrices = atExistingTimes(chain).attribute;
    EXPECT_EQ(2, matrices.getNumberOfTimeSamples());
    EXPECT_EQ(16, matrices.getTupleSize());
    EXPECT_EQ(16, matrices.getNumberOfValues());
    EXPECT_EQ(16, atTime(chain).attribute.getTupleSize());
}

// Between samples

TEST(TransformInterpolation, IsLinearAndClampedOutside) {
    const GroupAttribute chain = location({{"translate", slide({{1, 10}, {3, 20}, {4, 0}})}});
    const std::vector<std::pair<float, double>> rows = {
        {-kEndless, 10}, {0, 10}, {1, 10}, {1.5F, 12.5}, {3, 20}, {3.5F, 10}, {4, 0}, {9, 0}};
    for (const auto& [time, x] : rows) {
        EXPECT_EQ(x, xAt(chain, time)) << time;
    }
}

TEST(TransformInterpolation, TakesSamplesInAnyOrder) {
    const GroupAttribute chain = location({{"translate", slide({{4, 0}, {1, 10}, {3, 20}})}});
    for (const auto& [time, x] :
         std::vector<std::pair<float, double>>{{0, 10}, {2, 15}, {3.5F, 10}, {5, 0}}) {
        EXPECT_EQ(x, xAt(chain, time)) << time;
    }
}

TEST(TransformInterpolation, TakesTheFirstOfSamplesAtOneTime) {
    const GroupAttribute chain =
        location({{"translate", slide({{2, 4}, {1, 10}, {2, 8}, {1, 20}})}});
    EXPECT_EQ(10, xAt(chain, 1));
    EXPECT_EQ(7, xAt(chain, 1.5F));
    EXPECT_EQ(4, xAt(chain, 2));
}

TEST(TransformInterpolation, GoesByTheValuesOfAnAngleAndAnAxis) {
    const GroupAttribute chain =
        location({{"rotate", timed({{0, {0, 1, 0, 0}}, {1, {90, 0, 1, 0}}})}});
    EXPECT_THAT(
        matrixOf(chain, 0.5F),
        Pointwise(DoubleNear(1e-14), matrixOf(location({{"rotate", doubles({45, 1, 1, 0})}}))));
}

TEST(TransformInterpolation, TurnsNothingWhereTheAxisPassesThroughZero) {
    const GroupAttribute chain =
        location({{"rotate", timed({{0, {90, 1, 0, 0}}, {1, {90, -1, 0, 0}}})}});
    EXPECT_EQ(matrixOf(location({{"scale", doubles({1, 1, 1})}})), matrixOf(chain, 0.5F));
}

TEST(TransformInterpolation, GoesByTheValuesOfAMatrix) {
    const GroupAttribute chain =
        location({{"matrix", timed({{0, Numbers(16, 1)}, {1, Numbers(16, 3)}})}});
    EXPECT_EQ(Numbers(16, 2), matrixOf(chain, 0.5F));
}

TEST(TransformInterpolation, IsInDoubleForIntegersAndFloats) {
    const IntAttribute ints(TimedSamples<int>{{0, {1, 0, 0}}, {1, {2, 0, 0}}});
    EXPECT_EQ(1.5, xAt(location({{"translate", ints}}), 0.5F));
    const float tenth = 0.1F;
    const FloatAttribute floats(TimedSamples<float>{{0, {tenth, 0, 0}}, {1, {0, 0, 0}}});
    EXPECT_EQ(double{tenth} * 0.75, xAt(location({{"translate", floats}}), 0.25F));
}

TEST(TransformInterpolation, HoldsTheFirstOfTwoSamplesThatAreEndlesslyApart) {
    const GroupAttribute chain =
        location({{"translate", slide({{-kEndless, 1}, {0, 2}, {kEndless, 3}})}});
    EXPECT_EQ(1, xAt(chain, -5));
    EXPECT_EQ(2, xAt(chain, 5));
    EXPECT_EQ(3, xAt(chain, kEndless));
}

TEST(TransformInterpolation, TakesTheFirstSamplesAtATimeThatIsNoNumber) {
    EXPECT_EQ(10, xAt(location({{"translate", slide({{3, 20}, {1, 10}})}}), kNoTime));
    EXPECT_EQ(10, xAt(location({{"translate", slide({{1, 10}, {3, 20}})}}), kNoTime));
}

TEST(TransformInterpolation, PassesOverSamplesAtTimesThatAreNoNumbers) {
    const GroupAttribute chain =
        location({{"translate", slide({{kNoTime, 7}, {1, 10}, {kNoTime, 8}, {3, 20}})}});
    EXPECT_EQ(10, xAt(chain, 0));
    EXPECT_EQ(15, xAt(chain, 2));
    EXPECT_EQ(20, xAt(chain, 4));
}

// Large input

TEST(TransformChain, MayBeOfManyLocationsAndTimes) {
    Children locations;
    std::vector<std::pair<float, double>> places;
    for (int i = 0; i < 300; ++i) {
        places.emplace_back(static_cast<float>(i), i);
    }
    const Attribute transform = group({{"translate", slide(places)}});
    for (int i = 0; i < 300; ++i) {
        locations.emplace_back("i" + std::to_string(i), transform);
    }
    const auto samples = samplesOf(atExistingTimes(group(locations)).attribute);
    ASSERT_EQ(300U, samples.size());
    EXPECT_EQ(300.0 * 299, samples[299].second[12]);
}
