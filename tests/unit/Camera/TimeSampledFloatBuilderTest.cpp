// SPDX-License-Identifier: Apache-2.0
#include "Camera/TimeSampledFloatBuilder.h"

#include <SylvarPlatform/SampleAccessor.h>

#include <gtest/gtest.h>

#include <stdexcept>

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;

namespace {

TimedSamples<float> samplesOf(const FloatAttribute& attribute) {
    const SampleAccessor<FloatAttribute> samples(attribute);
    TimedSamples<float> result;
    for (std::int64_t i = 0; i < samples.getNumberOfTimeSamples(); ++i) {
        const float* const values = samples.getSample(i);
        result.emplace_back(samples.getSampleTime(i),
                            std::vector<float>(values, values + samples.getNumberOfValues()));
    }
    return result;
}

}  // namespace

TEST(TimeSampledFloatBuilder, BuildsOneSampleAtTimeZeroWithoutValuesWhenNothingWasSet) {
    const FloatAttribute built = TimeSampledFloatBuilder(16).build();
    ASSERT_TRUE(built.isValid());
    EXPECT_EQ(1, built.getNumberOfTimeSamples());
    EXPECT_EQ(0.0F, built.getSampleTime(0));
    EXPECT_EQ(0, built.getNumberOfValues());
    EXPECT_EQ(16, built.getTupleSize());
}

TEST(TimeSampledFloatBuilder, BuildsItsSamplesAscendingByTime) {
    TimeSampledFloatBuilder builder(2);
    builder.set(2.5F, {5, 6});
    builder.set(-1.0F, {1, 2});
    builder.set(0.0F, {3, 4});
    const FloatAttribute built = builder.build();
    EXPECT_EQ((TimedSamples<float>{{-1.0F, {1, 2}}, {0.0F, {3, 4}}, {2.5F, {5, 6}}}),
              samplesOf(built));
    EXPECT_EQ(2, built.getTupleSize());
}

TEST(TimeSampledFloatBuilder, TakesTheLastSampleThatWasSetForATime) {
    TimeSampledFloatBuilder builder(1);
    builder.set(1.0F, {1, 2, 3});
    builder.set(1.0F, {4});
    EXPECT_EQ((TimedSamples<float>{{1.0F, {4}}}), samplesOf(builder.build()));
}

TEST(TimeSampledFloatBuilder, BuildsSamplesThatAreAllWithoutValues) {
    TimeSampledFloatBuilder builder(16);
    builder.set(0.0F, {});
    builder.set(1.0F, {});
    EXPECT_EQ((TimedSamples<float>{{0.0F, {}}, {1.0F, {}}}), samplesOf(builder.build()));
}

TEST(TimeSampledFloatBuilder, ThrowsWhenOneSampleHasAnotherSizeThanTheEarliest) {
    struct Row {
        std::vector<float> early;
        std::vector<float> middle;
        std::vector<float> late;
    };
    for (const Row& row : {Row{{1, 2}, {1, 2}, {1}},
                           Row{{1, 2}, {1, 2, 3}, {1, 2}},
                           Row{{}, {1, 2}, {1, 2}},
                           Row{{1, 2}, {1, 2}, {}}}) {
        TimeSampledFloatBuilder builder(2);
        builder.set(0.0F, row.early);
        builder.set(1.0F, row.middle);
        builder.set(2.0F, row.late);
        try {
            builder.build();
            ADD_FAILURE() << "nothing was thrown";
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ("Error building attribute time samples are different sizes.",
                         error.what());
        }
    }
}
