// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/DataAttribute.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvAttribute;
using testing::ElementsAre;

constexpr double kOtherwise = -77.0;
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kLargest = std::numeric_limits<double>::max();

std::vector<double> valuesAt(const DoubleAttribute& attribute, float time, long count = 1) {
    std::vector<double> values(static_cast<std::size_t>(count), 0.0);
    attribute.fillInterpSample(values.data(), count, time, kOtherwise, false);
    return values;
}

double valueAt(const DoubleAttribute& attribute, float time) {
    return valuesAt(attribute, time)[0];
}

TEST(FillInterpSample, IsLinearBetweenTwoSamplesAndClampedOutside) {
    const DoubleAttribute attribute(TimedSamples<double>{{0, {10}}, {2, {20}}, {4, {0}}});
    struct Row {
        float time;
        double value;
    };
    for (const Row& row : {Row{0, 10},
                           Row{1, 15},
                           Row{0.5F, 12.5},
                           Row{2, 20},
                           Row{3, 10},
                           Row{4, 0},
                           Row{-1, 10},
                           Row{-std::numeric_limits<float>::infinity(), 10},
                           Row{5, 0},
                           Row{std::numeric_limits<float>::infinity(), 0}}) {
        EXPECT_EQ(row.value, valueAt(attribute, row.time)) << row.time;
    }
}

TEST(FillInterpSample, TakesSamplesInAnyOrderOfTime) {
    const DoubleAttribute attribute(TimedSamples<double>{{4, {0}}, {0, {10}}, {2, {20}}});
    EXPECT_EQ(10, valueAt(attribute, -1));
    EXPECT_EQ(15, valueAt(attribute, 1));
    EXPECT_EQ(10, valueAt(attribute, 3));
    EXPECT_EQ(0, valueAt(attribute, 9));
}

TEST(FillInterpSample, TakesTheFirstOfSamplesAtOneTime) {
    const DoubleAttribute attribute(TimedSamples<double>{{0, {0}}, {1, {10}}, {1, {20}}, {2, {0}}});
    EXPECT_EQ(10, valueAt(attribute, 1));
    EXPECT_EQ(5, valueAt(attribute, 0.5F));
    EXPECT_EQ(5, valueAt(attribute, 1.5F));
    EXPECT_EQ(3, valueAt(DoubleAttribute(TimedSamples<double>{{1, {3}}, {1, {4}}}), 1));
}

TEST(FillInterpSample, HoldsASingleSampleAtAllTimes) {
    for (const float time : {-5.0F, 0.0F, 3.0F, 9.0F}) {
        EXPECT_EQ(7, valueAt(DoubleAttribute(7.0), time));
        EXPECT_EQ(7, valueAt(DoubleAttribute(TimedSamples<double>{{3, {7}}}), time));
    }
}

TEST(FillInterpSample, GivesTheSamplesOwnBitsAtItsOwnTime) {
    const DoubleAttribute attribute(
        TimedSamples<double>{{0.1F, {0.1}}, {0.3F, {-0.0}}, {0.7F, {kInfinity}}});
    EXPECT_EQ(0.1, valueAt(attribute, 0.1F));
    EXPECT_TRUE(std::signbit(valueAt(attribute, 0.3F)));
    EXPECT_EQ(kInfinity, valueAt(attribute, 0.7F));
}

TEST(FillInterpSample, FillsWhatHasNoValueWithTheDefault) {
    const DoubleAttribute pair(TimedSamples<double>{{0, {1, 2}}, {1, {3, 4}}});
    EXPECT_THAT(valuesAt(pair, 0.5F, 4), ElementsAre(2, 3, kOtherwise, kOtherwise));
    for (const DoubleAttribute& none : {DoubleAttribute(),
                                        DoubleAttribute(std::vector<double>{}),
                                        DoubleAttribute(TimedSamples<double>{}),
                                        DoubleAttribute(TimedSamples<double>{{0, {}}, {1, {}}})}) {
        EXPECT_THAT(valuesAt(none, 0.5F, 2), ElementsAre(kOtherwise, kOtherwise));
    }
}

TEST(FillInterpSample, FillsNoMoreThanItIsAskedFor) {
    double values[] = {1, 1, 1};
    DoubleAttribute(std::vector<double>{5, 6, 7}).fillInterpSample(values, 2, 0, kOtherwise, false);
    EXPECT_THAT(values, ElementsAre(5, 6, 1));
    DoubleAttribute(9.0).fillInterpSample(values, 0, 0, kOtherwise, false);
    DoubleAttribute(9.0).fillInterpSample(nullptr, 0, 0, kOtherwise, false);
    EXPECT_THAT(values, ElementsAre(5, 6, 1));
}

TEST(FillInterpSample, GivesTheDefaultAtATimeThatIsNoNumber) {
    EXPECT_EQ(kOtherwise, valueAt(DoubleAttribute(TimedSamples<double>{{0, {1}}, {1, {2}}}), kNan));
}

TEST(FillInterpSample, PassesOverSamplesAtTimesThatAreNoNumbers) {
    const DoubleAttribute attribute(TimedSamples<double>{{kNan, {99}}, {0, {1}}, {2, {3}}});
    EXPECT_EQ(2, valueAt(attribute, 1));
    EXPECT_EQ(1, valueAt(attribute, -1));
    EXPECT_EQ(kOtherwise,
              valueAt(DoubleAttribute(TimedSamples<double>{{kNan, {1}}, {kNan, {2}}}), 0));
}

TEST(FillInterpSample, KeepsAnInfinityThatBothSamplesHold) {
    const DoubleAttribute attribute(TimedSamples<double>{{0, {kInfinity}}, {1, {kInfinity}}});
    EXPECT_EQ(kInfinity, valueAt(attribute, 0.5F));
}

TEST(FillInterpSample, StaysBetweenTheLargestNumbers) {
    const DoubleAttribute attribute(TimedSamples<double>{{0, {-kLargest}}, {1, {kLargest}}});
    EXPECT_EQ(0.0, valueAt(attribute, 0.5F));
}

TEST(FillInterpSample, PassesOnAValueThatIsNoNumber) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const DoubleAttribute attribute(TimedSamples<double>{{0, {nan, 1}}, {1, {1, 2}}});
    const auto values = valuesAt(attribute, 0.5F, 2);
    EXPECT_TRUE(std::isnan(values[0]));
    EXPECT_EQ(1.5, values[1]);
}

}  // namespace
