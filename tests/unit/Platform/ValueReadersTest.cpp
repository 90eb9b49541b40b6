// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/DataAttribute.h>

#include "support/SuiteScope.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvAttribute;
using ovtest::SuiteScope;

template <class Action>
std::string thrownBy(Action action) {
    try {
        action();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "nothing";
}

TEST(GetDoubleValue, ReadsTheFirstValueOfTheSampleNearestTimeZero) {
    EXPECT_EQ(1.5, getDoubleValue(DoubleAttribute(1.5), 9.0, false));
    EXPECT_EQ(1.5, getDoubleValue(DoubleAttribute(1.5), 9.0, true));
    EXPECT_EQ(2.0, getDoubleValue(DoubleAttribute(std::vector<double>{2.0, 3.0}), 9.0, true));
    EXPECT_EQ(
        4.0,
        getDoubleValue(DoubleAttribute(TimedSamples<double>{{-1, {4.0}}, {1, {5.0}}}), 9.0, true));
    EXPECT_EQ(
        5.0,
        getDoubleValue(DoubleAttribute(TimedSamples<double>{{-2, {4.0}}, {1, {5.0}}}), 9.0, true));
}

TEST(GetDoubleValue, GivesTheDefaultWhenThereIsNoValue) {
    for (const DoubleAttribute& none : {DoubleAttribute(),
                                        DoubleAttribute(std::vector<double>{}),
                                        DoubleAttribute(TimedSamples<double>{}),
                                        DoubleAttribute(TimedSamples<double>{{1, {}}, {2, {}}})}) {
        EXPECT_EQ(9.0, getDoubleValue(none, 9.0, false));
    }
}

TEST(GetDoubleValue, ThrowsWhenThereIsNoValueAndItIsToldTo) {
    for (const DoubleAttribute& none : {DoubleAttribute(),
                                        DoubleAttribute(std::vector<double>{}),
                                        DoubleAttribute(TimedSamples<double>{})}) {
        EXPECT_EQ("Error getting double value from DoubleAttribute.",
                  thrownBy([&] { getDoubleValue(none, 9.0, true); }));
    }
}

TEST(GetDoubleValue, AsksForIndexZeroAtTimeZero) {
    OvAttributeSuite suite = *OvGetAttributeSuite();
    suite.getNearestDouble =
        [](OvAttributeStruct* const* handle, std::int64_t index, float time, double* value) {
            EXPECT_NE(nullptr, *handle);
            EXPECT_EQ(0, index);
            EXPECT_EQ(0.0F, time);
            *value = 0.0;
            return std::uint8_t{1};
        };
    const DoubleAttribute attribute(1.5);
    const SuiteScope scope(suite);
    EXPECT_EQ(0.0, getDoubleValue(attribute, 9.0, true)) << "a zero that is there is a value";
}

TEST(GetStringValue, ReadsTheFirstValueOfTheSampleNearestTimeZero) {
    EXPECT_EQ("text", getStringValue(StringAttribute("text"), "other", false));
    EXPECT_EQ("", getStringValue(StringAttribute(""), "other", true));
    EXPECT_EQ("a",
              getStringValue(StringAttribute(std::vector<std::string>{"a", "b"}), "other", true));
    EXPECT_EQ(
        "early",
        getStringValue(StringAttribute(TimedSamples<std::string>{{-1, {"early"}}, {1, {"late"}}}),
                       "other",
                       true));
}

TEST(GetStringValue, GivesTheDefaultWhenThereIsNoValue) {
    for (const StringAttribute& none : {StringAttribute(),
                                        StringAttribute(std::vector<std::string>{}),
                                        StringAttribute(TimedSamples<std::string>{})}) {
        EXPECT_EQ("other", getStringValue(none, "other", false));
    }
}

TEST(GetStringValue, ThrowsWhenThereIsNoValueAndItIsToldTo) {
    for (const StringAttribute& none : {StringAttribute(),
                                        StringAttribute(std::vector<std::string>{}),
                                        StringAttribute(TimedSamples<std::string>{})}) {
        EXPECT_EQ("Error getting string value from StringAttribute.",
                  thrownBy([&] { getStringValue(none, "other", true); }));
    }
}

TEST(GetStringValue, GivesTheDefaultForANullPointerAndNeverThrows) {
    OvAttributeSuite suite = *OvGetAttributeSuite();
    suite.getNearestString =
        [](OvAttributeStruct* const*, std::int64_t, float, const char** value) {
            *value = nullptr;
            return std::uint8_t{1};
        };
    const StringAttribute attribute("text");
    const SuiteScope scope(suite);
    EXPECT_EQ("other", getStringValue(attribute, "other", false));
    EXPECT_EQ("other", getStringValue(attribute, "other", true));
    EXPECT_EQ("other", attribute.getValue("other"));
}

TEST(GetStringValue, AsksForIndexZeroAtTimeZero) {
    OvAttributeSuite suite = *OvGetAttributeSuite();
    suite.getNearestString =
        [](OvAttributeStruct* const* handle, std::int64_t index, float time, const char** value) {
            EXPECT_NE(nullptr, *handle);
            EXPECT_EQ(0, index);
            EXPECT_EQ(0.0F, time);
            *value = "seen";
            return std::uint8_t{1};
        };
    const StringAttribute attribute("text");
    const SuiteScope scope(suite);
    EXPECT_EQ("seen", getStringValue(attribute, "other", true));
}

}  // namespace
