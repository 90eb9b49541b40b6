// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/SampleAccessor.h>

#include "support/Sanitized.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvAttribute;
using testing::ElementsAre;

template <class Attribute>
auto valuesOf(const Attribute& attribute, std::int64_t sample = 0) {
    const SampleAccessor<Attribute> samples(attribute);
    const auto* const begin = samples.getSample(sample);
    return std::vector<typename Attribute::value_type>(begin, begin + samples.getNumberOfValues());
}

std::vector<std::string> stringsOf(const StringAttribute& attribute, std::int64_t sample = 0) {
    const auto values = valuesOf(attribute, sample);
    return {values.begin(), values.end()};
}

TEST(DataAttribute, HoldsOneValueAtTimeZero) {
    EXPECT_EQ(-7, IntAttribute(-7).getValue(0));
    EXPECT_EQ(0.5F, FloatAttribute(0.5F).getValue(0));
    EXPECT_EQ(1e300, DoubleAttribute(1e300).getValue(0));
    EXPECT_EQ("text", StringAttribute("text").getValue(""));
    EXPECT_EQ("text", StringAttribute(std::string("text")).getValue(""));
    for (const DataAttribute& one : {DataAttribute(IntAttribute(1)),
                                     DataAttribute(FloatAttribute(1)),
                                     DataAttribute(DoubleAttribute(1)),
                                     DataAttribute(StringAttribute("1"))}) {
        EXPECT_EQ(1, one.getTupleSize());
        EXPECT_EQ(1, one.getNumberOfValues());
        EXPECT_EQ(1, one.getNumberOfTimeSamples());
        EXPECT_EQ(0.0F, one.getSampleTime(0));
    }
}

TEST(DataAttribute, KeepsTheLimitsOfItsKind) {
    using Int = std::numeric_limits<std::int32_t>;
    using Float = std::numeric_limits<float>;
    using Double = std::numeric_limits<double>;
    EXPECT_EQ(Int::min(), IntAttribute(Int::min()).getValue(0));
    EXPECT_EQ(Int::max(), IntAttribute(Int::max()).getValue(0));
    EXPECT_EQ(Float::denorm_min(), FloatAttribute(Float::denorm_min()).getValue(0));
    EXPECT_EQ(-Double::infinity(), DoubleAttribute(-Double::infinity()).getValue(0));
    EXPECT_TRUE(std::isnan(DoubleAttribute(Double::quiet_NaN()).getValue(0)));
    EXPECT_TRUE(std::signbit(FloatAttribute(-0.0F).getValue(1)));
}

TEST(DataAttribute, CopiesItsValues) {
    std::vector<float> values{1, 2, 3, 4, 5, 6};
    const FloatAttribute points(values, 3);
    values.assign(6, 0);
    EXPECT_EQ(3, points.getTupleSize());
    EXPECT_EQ(6, points.getNumberOfValues());
    EXPECT_EQ(1, points.getNumberOfTimeSamples());
    EXPECT_THAT(valuesOf(points), ElementsAre(1, 2, 3, 4, 5, 6));

    const std::int32_t plain[] = {7, 8};
    EXPECT_THAT(valuesOf(IntAttribute(plain, 2, 1)), ElementsAre(7, 8));
    EXPECT_THAT(valuesOf(DoubleAttribute(std::vector<double>{0.5, 1.5}, 2)), ElementsAre(0.5, 1.5));
}

TEST(DataAttribute, HoldsItsSamplesInTheirOrderWithTheirTimes) {
    const DoubleAttribute attribute(TimedSamples<double>{{2, {1, 2}}, {-1.5F, {3, 4}}, {2, {5, 6}}},
                                    2);
    EXPECT_EQ(3, attribute.getNumberOfTimeSamples());
    EXPECT_EQ(2, attribute.getNumberOfValues());
    EXPECT_EQ(2.0F, attribute.getSampleTime(0));
    EXPECT_EQ(-1.5F, attribute.getSampleTime(1));
    EXPECT_EQ(2.0F, attribute.getSampleTime(2));
    EXPECT_THAT(valuesOf(attribute, 1), ElementsAre(3, 4));
    EXPECT_THAT(valuesOf(attribute, 2), ElementsAre(5, 6));
}

TEST(DataAttribute, KeepsTheTimeOfASingleSample) {
    const float minusZero = -0.0F;
    EXPECT_EQ(3.5F, IntAttribute(TimedSamples<std::int32_t>{{3.5F, {1}}}).getSampleTime(0));
    EXPECT_TRUE(
        std::signbit(IntAttribute(TimedSamples<std::int32_t>{{minusZero, {1}}}).getSampleTime(0)));
    EXPECT_EQ(3.5F, StringAttribute(TimedSamples<std::string>{{3.5F, {"a"}}}).getSampleTime(0));
}

TEST(DataAttribute, HasTheTimeZeroWhereThereIsNoSample) {
    const IntAttribute attribute(TimedSamples<std::int32_t>{{3, {1}}, {4, {2}}});
    for (const std::int64_t index : {std::int64_t{-1},
                                     std::int64_t{2},
                                     std::numeric_limits<std::int64_t>::max(),
                                     std::numeric_limits<std::int64_t>::min()}) {
        EXPECT_EQ(0.0F, attribute.getSampleTime(index)) << index;
    }
}

TEST(DataAttribute, IsEmptyWhenNull) {
    const DoubleAttribute null;
    EXPECT_EQ(0, null.getTupleSize());
    EXPECT_EQ(0, null.getNumberOfValues());
    EXPECT_EQ(0, null.getNumberOfTimeSamples());
    EXPECT_EQ(0.0F, null.getSampleTime(0));
    EXPECT_EQ(4.0, null.getValue(4.0));
    EXPECT_EQ("none", StringAttribute().getValue("none"));
}

TEST(DataAttribute, MayHaveNoSamples) {
    for (const DataAttribute& none :
         {DataAttribute(IntAttribute(TimedSamples<std::int32_t>{})),
          DataAttribute(FloatAttribute(TimedSamples<float>{})),
          DataAttribute(DoubleAttribute(TimedSamples<double>{}, 16)),
          DataAttribute(StringAttribute(TimedSamples<std::string>{}))}) {
        ASSERT_TRUE(none);
        EXPECT_EQ(0, none.getNumberOfTimeSamples());
        EXPECT_EQ(0, none.getNumberOfValues());
        EXPECT_EQ(0.0F, none.getSampleTime(0));
    }
    EXPECT_EQ(16, DoubleAttribute(TimedSamples<double>{}, 16).getTupleSize());
    EXPECT_EQ(8, IntAttribute(TimedSamples<std::int32_t>{}).getValue(8));
}

TEST(DataAttribute, MayHaveSamplesWithoutValues) {
    const FloatAttribute attribute(TimedSamples<float>{{1, {}}, {2, {}}}, 3);
    EXPECT_EQ(2, attribute.getNumberOfTimeSamples());
    EXPECT_EQ(0, attribute.getNumberOfValues());
    EXPECT_EQ(2.0F, attribute.getSampleTime(1));
    EXPECT_EQ(9.0F, attribute.getValue(9.0F));
    const StringAttribute strings(TimedSamples<std::string>{{1, {}}, {2, {}}});
    EXPECT_EQ(2, strings.getNumberOfTimeSamples());
    EXPECT_EQ("none", strings.getValue("none"));
}

TEST(DataAttribute, MayBeAnEmptyList) {
    for (const DataAttribute& empty :
         {DataAttribute(IntAttribute(std::vector<std::int32_t>{})),
          DataAttribute(FloatAttribute(std::vector<float>{}, 3)),
          DataAttribute(DoubleAttribute(nullptr, 0, 1)),
          DataAttribute(StringAttribute(std::vector<std::string>{}))}) {
        ASSERT_TRUE(empty);
        EXPECT_EQ(1, empty.getNumberOfTimeSamples());
        EXPECT_EQ(0, empty.getNumberOfValues());
    }
}

TEST(DataAttribute, AllowsAListThatIsNoWholeNumberOfTuples) {
    const FloatAttribute attribute(std::vector<float>{1, 2, 3, 4}, 3);
    EXPECT_EQ(3, attribute.getTupleSize());
    EXPECT_EQ(4, attribute.getNumberOfValues());
}

TEST(DataAttribute, IsNullForAnIllegalTupleSize) {
    constexpr long kMost = std::numeric_limits<std::int32_t>::max();
    const std::vector<double> values{1, 2};
    const std::vector<std::string> strings{"a"};
    for (const long tupleSize : {0L, -1L, kMost + 1, std::numeric_limits<long>::min()}) {
        EXPECT_FALSE(IntAttribute(std::vector<std::int32_t>{1}, tupleSize)) << tupleSize;
        EXPECT_FALSE(FloatAttribute(std::vector<float>{1}, tupleSize)) << tupleSize;
        EXPECT_FALSE(DoubleAttribute(values, tupleSize)) << tupleSize;
        EXPECT_FALSE(DoubleAttribute(TimedSamples<double>{{1, values}}, tupleSize)) << tupleSize;
        EXPECT_FALSE(StringAttribute(strings, tupleSize)) << tupleSize;
        EXPECT_FALSE(StringAttribute(TimedSamples<std::string>{{1, strings}}, tupleSize))
            << tupleSize;
    }
    EXPECT_EQ(kMost, DoubleAttribute(values, kMost).getTupleSize());
    EXPECT_EQ(kMost, StringAttribute(strings, kMost).getTupleSize());
}

TEST(DataAttribute, IsNullForANegativeCount) {
    const double value = 1.0;
    EXPECT_FALSE(DoubleAttribute(&value, -1, 1));
    EXPECT_FALSE(DoubleAttribute(&value, std::numeric_limits<std::int64_t>::min(), 1));
    const auto& suite = *OvGetAttributeSuite();
    EXPECT_EQ(nullptr, suite.createStringArray(nullptr, -1, 1));
    EXPECT_EQ(nullptr, suite.createFloatFromSamples(nullptr, -1, nullptr, 0, 1, nullptr, nullptr));
    EXPECT_EQ(nullptr, suite.createStringFromSamples(nullptr, -1, nullptr, 0, 1, nullptr, nullptr));
}

TEST(DataAttribute, RunsOutOfMemoryForCountsThatNoMachineHolds) {
    if (ovtest::kIsSanitized) {
        GTEST_SKIP() << "the sanitizer ends the process instead";
    }
    const double value = 1.0;
    EXPECT_THROW(DoubleAttribute(&value, std::numeric_limits<std::int64_t>::max(), 1),
                 std::bad_alloc);
    EXPECT_THROW(DoubleAttribute(&value, std::numeric_limits<std::int64_t>::max() / 8, 1),
                 std::bad_alloc);
    const float times[] = {0, 1, 2, 3};
    const double* const samples[] = {&value, &value, &value, &value};
    EXPECT_THROW(OvGetAttributeSuite()->createDoubleFromSamples(
                     times, 4, samples, std::int64_t{1} << 61, 1, nullptr, nullptr),
                 std::bad_alloc);
}

template <class Action>
std::string refusedBy(Action action) {
    try {
        action();
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "nothing";
}

TEST(DataAttribute, RefusesSamplesThatDifferInTheirNumberOfValues) {
    const std::string refused = "The samples of an attribute differ in their number of values.";
    EXPECT_EQ(refused, refusedBy([] {
                  IntAttribute(TimedSamples<std::int32_t>{{0, {1}}, {1, {}}});
              }));
    EXPECT_EQ(refused, refusedBy([] { FloatAttribute(TimedSamples<float>{{0, {}}, {1, {1}}}); }));
    EXPECT_EQ(refused, refusedBy([] {
                  DoubleAttribute(TimedSamples<double>{{0, {1}}, {1, {1}}, {2, {1, 2}}});
              }));
    EXPECT_EQ(refused, refusedBy([] {
                  StringAttribute(TimedSamples<std::string>{{0, {"a"}}, {1, {"a", "b"}}});
              }));
}

TEST(DataAttribute, GetsAValueByIndexAndTimeOrTheDefault) {
    const IntAttribute attribute(TimedSamples<std::int32_t>{{0, {1, 2}}, {10, {3, 4}}});
    struct Row {
        std::int64_t index;
        float time;
        int value;
    };
    for (const Row& row : {Row{0, 0, 1},
                           Row{1, 0, 2},
                           Row{0, 5, 1},
                           Row{0, 5.1F, 3},
                           Row{1, 99, 4},
                           Row{2, 0, -1},
                           Row{-1, 0, -1},
                           Row{std::numeric_limits<std::int64_t>::max(), 0, -1},
                           Row{std::numeric_limits<std::int64_t>::min(), 0, -1}}) {
        EXPECT_EQ(row.value, attribute.getValue(-1, row.index, row.time))
            << row.index << " at " << row.time;
    }
}

TEST(StringAttribute, EndsAValueAtItsFirstNul) {
    const std::string text("ab\0cd", 5);
    EXPECT_EQ("ab", StringAttribute(text).getValue(""));
    EXPECT_THAT(stringsOf(StringAttribute(std::vector<std::string>{text, "e"})),
                ElementsAre("ab", "e"));
    EXPECT_EQ(StringAttribute("ab").getHash(), StringAttribute(text).getHash());
}

TEST(StringAttribute, ReadsANullPointerAsTheEmptyString) {
    EXPECT_EQ("", StringAttribute(static_cast<const char*>(nullptr)).getValue("none"));
    const char* const values[] = {"a", nullptr, "c"};
    const auto list =
        StringAttribute::adopt(OvGetAttributeSuite()->createStringArray(values, 3, 1));
    EXPECT_THAT(stringsOf(list), ElementsAre("a", "", "c"));
    EXPECT_EQ(StringAttribute(std::vector<std::string>{"a", "", "c"}).getHash(), list.getHash());
}

TEST(StringAttribute, HoldsAnyBytesButNulAndAnyLength) {
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    const std::string longText(1000000, 'x');
    EXPECT_EQ(bytes, StringAttribute(bytes).getValue(""));
    EXPECT_EQ(longText, StringAttribute(longText).getValue(""));
}

TEST(StringAttribute, HoldsStringsAtSeveralTimes) {
    const StringAttribute attribute(
        TimedSamples<std::string>{{0, {"a", ""}}, {1, {"", "long text that is no short one"}}}, 2);
    EXPECT_EQ(2, attribute.getTupleSize());
    EXPECT_THAT(stringsOf(attribute, 0), ElementsAre("a", ""));
    EXPECT_THAT(stringsOf(attribute, 1), ElementsAre("", "long text that is no short one"));
    EXPECT_EQ("long text that is no short one", attribute.getValue("", 1, 1.0F));
}

TEST(DataAttribute, MakesAOneSampleAttributeFromTheAddressOfTheTimeZero) {
    const float values[] = {1, 2, 3};
    const float* const samples[] = {values};
    const auto made = FloatAttribute::adopt(OvGetAttributeSuite()->createFloatFromSamples(
        &DataAttribute::kZero, 1, samples, 3, 3, nullptr, nullptr));
    EXPECT_EQ(0.0F, DataAttribute::kZero);
    EXPECT_EQ(FloatAttribute(std::vector<float>{1, 2, 3}, 3).getHash(), made.getHash());
}

TEST(DataAttribute, LiesAtAnAddressThatItsValuesCanBeReadFrom) {
    for (std::size_t size = 1; size < 40; ++size) {
        const DoubleAttribute doubles(std::vector<double>(size, 1.0));
        const StringAttribute strings(std::vector<std::string>(size, "odd"));
        const auto address = [](const auto& attribute) {
            return reinterpret_cast<std::uintptr_t>(
                SampleAccessor<std::decay_t<decltype(attribute)>>(attribute, 0.0F).getNearest());
        };
        EXPECT_EQ(0U, address(doubles) % alignof(double));
        EXPECT_EQ(0U, address(strings) % alignof(const char*));
    }
}

}  // namespace
