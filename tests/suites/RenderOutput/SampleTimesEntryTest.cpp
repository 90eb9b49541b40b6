// SPDX-License-Identifier: Apache-2.0
#include "support/RenderOutputTest.h"

#include <array>

using ovtest::IsWritten;

namespace {

class SampleTimesEntry : public ovtest::RenderOutputTest {
protected:
    Attribute times(const std::vector<float>& samples, float open, float close) const {
        return take(table.findSampleTimesRelevantToShutterRange(
            samples.data(), static_cast<unsigned>(samples.size()), open, close));
    }
};

}  // namespace

TEST_F(SampleTimesEntry, AreThoseAroundTheOpenShutter) {
    EXPECT_THAT(times({0, 1, 2, 3}, 1.5F, 2.5F), IsWritten(R"({"$float": [1, 2, 3]})"));
    EXPECT_THAT(times({0, 1, 2, 3}, 1, 2), IsWritten(R"({"$float": [1, 2]})"));
}

TEST_F(SampleTimesEntry, OfSamplesOutOfOrderAreAscending) {
    EXPECT_THAT(times({3, 0, 2, 1}, 1.5F, 2.5F), IsWritten(R"({"$float": [1, 2, 3]})"));
}

TEST_F(SampleTimesEntry, OfSamplesThatAreThereTwiceAreThereOnce) {
    EXPECT_THAT(times({2, 1, 2}, 0, 3), IsWritten(R"({"$float": [1, 2]})"));
    EXPECT_THAT(times({0.0F, -0.0F, 0.0F}, 0, 1), IsWritten(R"({"$float": [0]})"));
}

TEST_F(SampleTimesEntry, AreNoneOfNoSamplesThoughStillOneSampleAtTimeZero) {
    EXPECT_THAT(times({}, 0, 1), IsWritten(R"({"$float": []})"));
    EXPECT_THAT(take(table.findSampleTimesRelevantToShutterRange(nullptr, 0, 0, 1)),
                IsWritten(R"({"$float": []})"));
}

TEST_F(SampleTimesEntry, AreOfAsManySamplesAsAreCounted) {
    const std::array<float, 3> samples = {1, 2, 3};
    EXPECT_THAT(take(table.findSampleTimesRelevantToShutterRange(samples.data(), 2, 0, 9)),
                IsWritten(R"({"$float": [1, 2]})"));
}

TEST_F(SampleTimesEntry, AreTheWholeNumbersOfNoOtherShutter) {
    EXPECT_THAT(times({5, 6}, 1, 2), IsWritten(R"({"$float": [5]})"));
    EXPECT_THAT(times({0, 1}, 5, 6), IsWritten(R"({"$float": [1]})"));
}
