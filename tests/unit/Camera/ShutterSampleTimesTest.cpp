// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/Projection.h>

#include "RandomCameras.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <set>
#include <vector>

using namespace ovtest;
using Times = std::vector<float>;
using Samples = std::set<float>;

namespace {

constexpr float kNoTime = std::numeric_limits<float>::quiet_NaN();
constexpr float kEver = std::numeric_limits<float>::infinity();

Times relevant(const Samples& samples, float open, float close) {
    Times result = {42};
    SYLVAR::FindSampleTimesRelevantToShutterRange(samples, open, close, result);
    return result;
}

/// What is meant: from the last one at or before the open to the first one at or after the close.
Times bracketed(const Samples& samples, float open, float close) {
    auto begin = samples.upper_bound(open);
    if (begin != samples.begin()) {
        --begin;
    }
    auto end = std::find_if(begin, samples.end(), [&](float time) { return time >= close; });
    if (end != samples.end()) {
        ++end;
    }
    return Times(begin, end);
}

/// Values that are often equal.
float timeFrom(RandomCameras& random) {
    return static_cast<float>(random.below(9) - 4) / 4.0F;
}

/// Values about the one that stands for no earlier sample.
float farTimeFrom(RandomCameras& random) {
    const float times[] = {-9998, -9999, -10000, -10001, -kEver, kEver, 0, random.oddFloat()};
    return times[random.below(8)];
}

template <class Time>
Samples samplesFrom(RandomCameras& random, Time time) {
    Samples samples;
    for (int i = random.below(7); i > 0; --i) {
        const float value = time(random);
        samples.insert(value == value ? value : 0.0F);
    }
    return samples;
}

}  // namespace

TEST(ShutterSampleTimes, AreThoseOfTheStepsOneByOneForRandomShutters) {
    RandomCameras random(6);
    for (int i = 0; i < 50000; ++i) {
        const bool isFar = random.below(2) == 0;
        const Samples samples =
            isFar ? samplesFrom(random, farTimeFrom) : samplesFrom(random, timeFrom);
        const float open = isFar ? farTimeFrom(random) : timeFrom(random);
        const float close = isFar ? farTimeFrom(random) : timeFrom(random);
        ASSERT_EQ(reference::sampleTimes(samples, open, close), relevant(samples, open, close))
            << i << ' ' << open << ' ' << close;
    }
}

TEST(ShutterSampleTimes, AreTheOnesInsideAndTheirNeighboursForRandomShutters) {
    RandomCameras random(7);
    for (int i = 0; i < 50000; ++i) {
        const Samples samples = samplesFrom(random, timeFrom);
        const float open = timeFrom(random);
        const float close = timeFrom(random);
        ASSERT_EQ(bracketed(samples, open, close), relevant(samples, open, close))
            << i << ' ' << open << ' ' << close;
    }
}

TEST(ShutterSampleTimes, BracketTheShutter) {
    struct Row {
        Samples samples;
        float open;
        float close;
        Times expected;
    };
    for (const Row& row : {Row{{0, 1, 2, 3}, 1.5F, 2.5F, {1, 2, 3}},
                           Row{{0, 1, 2, 3}, 1, 2, {1, 2}},
                           Row{{0, 1}, 5, 6, {1}},
                           Row{{5, 6}, 1, 2, {5}},
                           Row{{0, 1, 2, 3}, 1, 1, {1}},
                           Row{{0, 1, 2, 3}, -1, 9, {0, 1, 2, 3}},
                           Row{{0, 1, 2, 3}, 0, 1.5F, {0, 1, 2}},
                           Row{{0, 1, 2, 3}, 2, 1, {2}},
                           Row{{}, 0, 1, {}}}) {
        EXPECT_EQ(row.expected, relevant(row.samples, row.open, row.close))
            << row.open << ' ' << row.close;
    }
}

TEST(ShutterSampleTimes, TakeASampleAtTheOpenInPlaceOfAnEarlierOne) {
    EXPECT_EQ((Times{1, 2}), relevant({0.5F, 1, 2}, 1, 2));
}

TEST(ShutterSampleTimes, TakeTheLastSampleBeforeTheOpenAlone) {
    EXPECT_EQ((Times{0.75F, 2}), relevant({0, 0.5F, 0.75F, 2}, 1, 2));
}

TEST(ShutterSampleTimes, AlwaysTakeASingleSample) {
    for (const float time : {-100.0F, -1.0F, 0.0F, 0.5F, 1.0F, 100.0F, kEver, -kEver}) {
        EXPECT_EQ(Times{time}, relevant({time}, 0, 1)) << time;
        EXPECT_EQ(Times{time}, relevant({time}, 1, 0)) << time;
    }
}

TEST(ShutterSampleTimes, ReplaceWhatWasThere) {
    EXPECT_EQ(Times(), relevant({}, 0, 1));
    EXPECT_EQ((Times{0}), relevant({0}, 0, 1));
}

TEST(ShutterSampleTimes, HaveRoomForAllSamplesAtOnce) {
    Times result;
    SYLVAR::FindSampleTimesRelevantToShutterRange({0, 1, 2, 3, 4, 5, 6}, 0, 0, result);
    EXPECT_EQ(Times{0}, result);
    EXPECT_GE(result.capacity(), 7U);
}

TEST(ShutterSampleTimes, OfAShutterThatIsNoNumber) {
    EXPECT_EQ((Times{0, 1}), relevant({0, 1, 2}, kNoTime, 1));
    EXPECT_EQ((Times{1, 2}), relevant({0, 1, 2}, 1, kNoTime));
    EXPECT_EQ(Times{2}, relevant({0, 1, 2}, kEver, kEver));
}

// An oddity: -9999 stands for no earlier sample, and so a close as early as that has had one.
TEST(ShutterSampleTimes, AreNoneForACloseAtOrBelowMinus9999) {
    for (const float close : {-9999.0F, -10000.0F, -kEver}) {
        EXPECT_EQ(Times(), relevant({5}, 0, close)) << close;
        EXPECT_EQ(Times(), relevant({-9998, 5}, -20000, close)) << close;
    }
    EXPECT_EQ(Times{5}, relevant({5}, 0, -9998.5F));
}

// The same oddity: it is no bound on times.
TEST(ShutterSampleTimes, MayBeEarlierThanMinus9999) {
    EXPECT_EQ((Times{-20000, -15000}), relevant({-20000, -15000, 0}, -16000, -15000));
    EXPECT_EQ((Times{-20000, 0}), relevant({-20000, 0, 1}, -16000, -15000));
}
