// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/GroupAttribute.h>
#include <SylvarPlatform/SampleAccessor.h>

#include "support/SuiteCalls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvAttribute;
using ovtest::SuiteCall;
using ovtest::SuiteCalls;
using ovtest::SuiteScope;
using testing::ElementsAre;

/// A table of functions that hands out one prepared sample table, and what was asked of it.
class PreparedSamples {
public:
    explicit PreparedSamples(OvSampleTable* samples) : scope_(table()) {
        state() = State();
        state().samples = samples;
    }

    struct State {
        OvSampleTable* samples = nullptr;
        bool bufferWasZeroed = false;
        std::int32_t wantedType = 0;
        std::int32_t inlineWanted = 0;
        std::vector<std::string> calls;
    };

    static State& state() {
        static State instance;
        return instance;
    }

private:
    static OvSampleTable* acquire(OvAttributeStruct* /*handle*/,
                                  std::int32_t wantedType,
                                  std::int32_t inlineWanted,
                                  OvSampleTableBuffer* buffer) {
        State& now = state();
        now.wantedType = wantedType;
        now.inlineWanted = inlineWanted;
        now.bufferWasZeroed = std::all_of(std::begin(buffer->words),
                                          std::end(buffer->words),
                                          [](auto word) { return word == 0; });
        now.calls.emplace_back("acquireSamples");
        return now.samples;
    }

    static const OvAttributeSuite& table() {
        static const OvAttributeSuite prepared = [] {
            OvAttributeSuite suite = *OvGetAttributeSuite();
            suite.acquireSamples = acquire;
            suite.disposeSamples = [](OvSampleTable*) {
                state().calls.emplace_back("disposeSamples");
            };
            suite.retain = [](OvAttributeStruct* handle) {
                state().calls.emplace_back("retain");
                OvGetAttributeSuite()->retain(handle);
            };
            suite.release = [](OvAttributeStruct* handle) {
                state().calls.emplace_back("release");
                OvGetAttributeSuite()->release(handle);
            };
            return suite;
        }();
        return prepared;
    }

    SuiteScope scope_;
};

TEST(SampleAccessor, AcquiresInTheTablesOwnBufferThenRetains) {
    const DoubleAttribute attribute(1.5);
    SuiteCalls calls;
    {
        const SampleAccessor<DoubleAttribute> samples(attribute, 0.0F);
        EXPECT_THAT(calls.take(),
                    ElementsAre(SuiteCall{"acquireSamples", attribute.handle()},
                                SuiteCall{"retain", attribute.handle()}));
        EXPECT_EQ(1.5, *samples.getNearest());
    }
    EXPECT_THAT(calls.take(), ElementsAre(SuiteCall{"release", attribute.handle()}));
}

TEST(SampleAccessor, TakesOverTheReferenceOfACallerWhoNeedsItNoMore) {
    DoubleAttribute attribute(1.5);
    OvAttributeStruct* const handle = attribute.handle();
    SuiteCalls calls;
    {
        const SampleAccessor<DoubleAttribute> samples(std::move(attribute), 0.0F);
        EXPECT_THAT(calls.take(), ElementsAre(SuiteCall{"acquireSamples", handle}));
        EXPECT_EQ(1.5, *samples.getNearest());
    }
    EXPECT_THAT(calls.take(), ElementsAre(SuiteCall{"release", handle}));
}

TEST(SampleAccessor, PassesAZeroedBufferTheWantedKindAndOne) {
    const StringAttribute attribute("text");
    const PreparedSamples prepared(nullptr);
    for (int round = 0; round < 2; ++round) {
        const SampleAccessor<StringAttribute> samples(attribute, 0.0F);
        EXPECT_TRUE(prepared.state().bufferWasZeroed);
        EXPECT_EQ(OV_ATTRIBUTE_STRING, prepared.state().wantedType);
        EXPECT_EQ(1, prepared.state().inlineWanted);
    }
}

TEST(SampleAccessor, DisposesOfATableThatAsksForItThenReleases) {
    struct Row {
        std::uint8_t flags;
        bool disposes;
    };
    const float time = 0.0F;
    const double value = 2.5;
    const DoubleAttribute attribute(1.0);
    for (const Row& row : {Row{OV_SAMPLES_CONTIGUOUS, false},
                           Row{OV_SAMPLES_CONTIGUOUS | OV_SAMPLES_DISPOSE, true},
                           Row{0xFE, false},
                           Row{0xFF, true}}) {
        OvSampleTable table{0, row.flags, 1, 1, &time, &value};
        const PreparedSamples prepared(&table);
        { const SampleAccessor<DoubleAttribute> samples(attribute, 0.0F); }
        const auto& calls = prepared.state().calls;
        if (row.disposes) {
            EXPECT_THAT(calls,
                        ElementsAre("acquireSamples", "retain", "disposeSamples", "release"));
        } else {
            EXPECT_THAT(calls, ElementsAre("acquireSamples", "retain", "release"));
        }
    }
}

TEST(SampleAccessor, DisposesOfATableWithoutSamplesToo) {
    OvSampleTable table{0, OV_SAMPLES_DISPOSE, 0, 0, nullptr, nullptr};
    const PreparedSamples prepared(&table);
    const DoubleAttribute attribute(1.0);
    { const SampleAccessor<DoubleAttribute> samples(attribute, 0.0F); }
    EXPECT_THAT(prepared.state().calls,
                ElementsAre("acquireSamples", "retain", "disposeSamples", "release"));
}

TEST(SampleAccessorDeathTest, EndsTheProcessWhenATableThrowsWhileItIsDisposedOf) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto disposeWithThrow = [] {
        OvAttributeSuite suite = *OvGetAttributeSuite();
        suite.acquireSamples = [](auto*, std::int32_t, std::int32_t, OvSampleTableBuffer*) {
            static OvSampleTable table{0, OV_SAMPLES_DISPOSE, 0, 0, nullptr, nullptr};
            return &table;
        };
        suite.disposeSamples = [](OvSampleTable*) { throw std::runtime_error("cannot dispose"); };
        const DoubleAttribute attribute(1.0);
        const SuiteScope scope(suite);
        try {
            const SampleAccessor<DoubleAttribute> samples(attribute);
        } catch (const std::runtime_error&) {
            std::exit(0);
        }
    };
    EXPECT_DEATH(disposeWithThrow(), "");
}

TEST(SampleAccessor, KeepsTheValuesAliveWhenTheAttributeIsLetGo) {
    StringAttribute attribute(std::string(300, 'x'));
    const SampleAccessor<StringAttribute> samples(attribute, 0.0F);
    attribute = StringAttribute();
    EXPECT_EQ(std::string(300, 'x'), *samples.getNearest());
}

struct NearestRow {
    std::vector<float> times;
    float wanted;
    int nearest;
};

TEST(SampleAccessor, TakesTheNearestSampleAndTheFirstOfEqualDistance) {
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    for (const NearestRow& row : {NearestRow{{-1, 1}, 0, 0},
                                  NearestRow{{1, -1}, 0, 0},
                                  NearestRow{{-1, 1}, 0.001F, 1},
                                  NearestRow{{5}, 0, 0},
                                  NearestRow{{0, 1, 2}, 1.4F, 1},
                                  NearestRow{{0, 1, 2}, 1.5F, 1},
                                  NearestRow{{0, 1, 2}, 1.6F, 2},
                                  NearestRow{{0, 1, 2}, -9, 0},
                                  NearestRow{{0, 1, 2}, 9, 2},
                                  NearestRow{{3, 2, 1, 0, 1}, 1, 2},
                                  NearestRow{{7, 7, 7}, 7, 0},
                                  NearestRow{{-0.0F, 0.0F}, 0, 0},
                                  NearestRow{{kNan, 0}, 0, 0},
                                  NearestRow{{1, kNan, 0}, 0, 2},
                                  NearestRow{{1, 2}, kNan, 0},
                                  NearestRow{{1, kInfinity}, kInfinity, 0},
                                  NearestRow{{-1e8F, 1e8F}, 0.3F, 0}}) {
        TimedSamples<std::int32_t> timed;
        for (std::size_t i = 0; i < row.times.size(); ++i) {
            timed.push_back({row.times[i], {static_cast<std::int32_t>(i), 100}});
        }
        const IntAttribute attribute(timed);
        const SampleAccessor<IntAttribute> samples(attribute, row.wanted);
        ASSERT_NE(nullptr, samples.getNearest());
        EXPECT_EQ(row.nearest, samples.getNearest()[0]) << testing::PrintToString(row.times);
        EXPECT_EQ(100, samples.getNearest()[1]);
        EXPECT_EQ(row.nearest, attribute.getValue(-1, 0, row.wanted))
            << testing::PrintToString(row.times);
    }
}

TEST(SampleAccessor, LooksForNoNearestSampleUnlessAsked) {
    const SampleAccessor<IntAttribute> samples(IntAttribute(3));
    EXPECT_TRUE(samples.hasTable());
    EXPECT_EQ(nullptr, samples.getNearest());
    EXPECT_EQ(samples.begin(), samples.end());
    EXPECT_EQ(3, *samples.getSample(0));
}

TEST(SampleAccessor, GivesNothingForAnAttributeWithoutSamples) {
    const StringAttribute attribute(TimedSamples<std::string>{});
    ASSERT_TRUE(attribute);
    const SampleAccessor<StringAttribute> samples(attribute, 0.0F);
    EXPECT_TRUE(samples.hasTable());
    EXPECT_EQ(0, samples.getNumberOfTimeSamples());
    EXPECT_EQ(0, samples.getNumberOfValues());
    EXPECT_EQ(nullptr, samples.getNearest());
    EXPECT_EQ(samples.begin(), samples.end());
}

TEST(SampleAccessor, HasAnEmptySampleOfAnEmptyList) {
    const SampleAccessor<StringAttribute> samples(StringAttribute(std::vector<std::string>{}),
                                                  0.0F);
    EXPECT_EQ(1, samples.getNumberOfTimeSamples());
    EXPECT_EQ(0, samples.getNumberOfValues());
    EXPECT_EQ(samples.begin(), samples.end());
}

TEST(SampleAccessor, ReadsAnAttributeOfAnotherKindAsOneWithoutSamples) {
    for (const Attribute& other : {Attribute(),
                                   Attribute(IntAttribute(1)),
                                   Attribute(FloatAttribute(1)),
                                   Attribute(StringAttribute("1")),
                                   Attribute(GroupAttribute({}, false))}) {
        const SampleAccessor<DoubleAttribute> samples(other, 0.0F);
        EXPECT_FALSE(samples.hasTable());
        EXPECT_EQ(0, samples.getNumberOfTimeSamples());
        EXPECT_EQ(0, samples.getNumberOfValues());
        EXPECT_EQ(nullptr, samples.getNearest());
    }
}

TEST(SampleAccessor, ReadsSamplesThatLieApart) {
    const float times[] = {-2.0F, 0.5F, 4.0F};
    const double first[] = {1.0, 2.0};
    const double second[] = {3.0, 4.0};
    const double third[] = {5.0, 6.0};
    const double* const values[] = {first, second, third};
    OvSampleTable table{0, 0, 3, 2, times, values};
    const PreparedSamples prepared(&table);
    const SampleAccessor<DoubleAttribute> samples(Attribute(), 0.0F);
    EXPECT_EQ(3, samples.getNumberOfTimeSamples());
    EXPECT_EQ(2, samples.getNumberOfValues());
    EXPECT_EQ(4.0F, samples.getSampleTime(2));
    EXPECT_EQ(second, samples.getNearest());
    EXPECT_EQ(third, samples.getSample(2));
    EXPECT_THAT(std::vector<double>(samples.begin(), samples.end()), ElementsAre(3.0, 4.0));
}

TEST(SampleAccessor, ReadsSamplesThatLieInARow) {
    const float times[] = {-2.0F, 0.5F};
    const char* const values[] = {"a", nullptr, "c", "d"};
    OvSampleTable table{0, OV_SAMPLES_CONTIGUOUS, 2, 2, times, values};
    const PreparedSamples prepared(&table);
    const SampleAccessor<StringAttribute> samples(Attribute(), -3.0F);
    EXPECT_EQ(nullptr, samples.getSample(0)[1]);
    EXPECT_EQ(values, samples.getNearest());
    EXPECT_EQ(values + 2, samples.getSample(1));
}

TEST(SampleAccessor, GivesTheStringsOfTheSampleNearestTimeZeroNotOfTheFirst) {
    const StringAttribute attribute(
        TimedSamples<std::string>{{-3, {"far", "away"}}, {0.25F, {"near", ""}}, {1, {"x", "y"}}});
    const SampleAccessor<StringAttribute> samples(attribute, 0.0F);
    EXPECT_THAT(std::vector<std::string>(samples.begin(), samples.end()), ElementsAre("near", ""));
}

}  // namespace
