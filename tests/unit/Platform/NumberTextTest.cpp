// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Forms/NumberText.h"

#include "support/RandomAttribute.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstring>
#include <limits>
#include <locale>
#include <string>

namespace {

using namespace Sylvar3::internal::OvAttribute::Embedded;

template <class T>
std::string textOf(T value) {
    char text[NumberText::kLongest];
    return {text, NumberText::write(text, value)};
}

template <class T>
bool reads(std::string_view text) {
    T value{};
    return NumberText::read(text, value);
}

template <class T>
void expectRoundTrip(T value) {
    T read{};
    ASSERT_TRUE(NumberText::read(textOf(value), read)) << textOf(value);
    ASSERT_EQ(0, std::memcmp(&value, &read, sizeof value)) << textOf(value);
}

template <class T, class Bits>
T fromBits(Bits bits) {
    T value{};
    static_assert(sizeof value == sizeof bits);
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

TEST(NumberText, IsTheShortestThatReadsBack) {
    EXPECT_EQ("0.1", textOf(0.1F));
    EXPECT_EQ("0.1", textOf(0.1));
    EXPECT_EQ("0.10000000149011612", textOf(static_cast<double>(0.1F)));
    EXPECT_EQ("16777216", textOf(16777216.0F));
    EXPECT_EQ("1e+20", textOf(1e20F));
    EXPECT_EQ("1", textOf(1.0));
    EXPECT_EQ("5e-324", textOf(std::numeric_limits<double>::denorm_min()));
    EXPECT_EQ("-2147483648", textOf(std::numeric_limits<std::int32_t>::min()));
}

TEST(NumberText, NegativeZeroKeepsItsSign) {
    EXPECT_EQ("-0", textOf(-0.0F));
    EXPECT_EQ("-0", textOf(-0.0));
    expectRoundTrip(-0.0F);
    expectRoundTrip(-0.0);
}

TEST(NumberText, WhatIsNotFiniteHasWords) {
    EXPECT_EQ("inf", textOf(std::numeric_limits<float>::infinity()));
    EXPECT_EQ("-inf", textOf(-std::numeric_limits<double>::infinity()));
    EXPECT_EQ("nan", textOf(fromBits<float>(0x7FC00000U)));
    EXPECT_EQ("nan", textOf(fromBits<double>(std::uint64_t{0x7FF8} << 48)));
}

TEST(NumberText, OtherNansAreTheirBits) {
    EXPECT_EQ("\\xFFC00000", textOf(fromBits<float>(0xFFC00000U)));
    EXPECT_EQ("\\x7F800001", textOf(fromBits<float>(0x7F800001U)));
    EXPECT_EQ("\\xFFF8000000000001", textOf(fromBits<double>(std::uint64_t{0xFFF8000000000001})));
    expectRoundTrip(fromBits<float>(0x7F800001U));
    expectRoundTrip(fromBits<double>(std::uint64_t{0xFFF8000000000001}));
}

TEST(NumberText, RefusesWhatIsNoNumber) {
    for (const char* const text : {"",       "-",       "+1",       " 1",          "1 ",
                                   "1,5",    "0x10",    "infinity", "INF",         "NaN",
                                   "-nan",   "nan(1)",  "--1",      "1e",          "1e999",
                                   "-1e999", "\\x7FC0", "\\x",      "\\x-FC00001", "\\x7FC00001\\x",
                                   "one"}) {
        EXPECT_FALSE(reads<float>(text)) << text;
        EXPECT_FALSE(reads<double>(text)) << text;
        EXPECT_FALSE(reads<std::int32_t>(text)) << text;
    }
    EXPECT_FALSE(reads<float>("\\x7FF8000000000001"));
    EXPECT_FALSE(reads<double>("\\x7FC00001"));
    EXPECT_FALSE(reads<float>("1e39"));
    for (const char* const text : {"1.0", "1e2", "2147483648", "-2147483649", "nan", "inf"}) {
        EXPECT_FALSE(reads<std::int32_t>(text)) << text;
    }
}

TEST(NumberText, ARefusedTextLeavesTheNumber) {
    float value = 7;
    EXPECT_FALSE(NumberText::read("1x", value));
    EXPECT_EQ(7, value);
}

TEST(NumberText, SpecialTextsAloneAreSpecial) {
    float value = 0;
    EXPECT_TRUE(NumberText::readSpecial("-inf", value));
    EXPECT_TRUE(NumberText::readSpecial("\\x7FC00001", value));
    EXPECT_FALSE(NumberText::readSpecial("1.5", value));
    EXPECT_FALSE(NumberText::readSpecial("", value));
}

TEST(NumberText, EveryBitPatternSurvives) {
    ovtest::RandomAttribute random(3);
    for (int i = 0; i < 100000; ++i) {
        ASSERT_NO_FATAL_FAILURE(expectRoundTrip(random.anyFloat()));
        ASSERT_NO_FATAL_FAILURE(expectRoundTrip(random.anyDouble()));
        ASSERT_NO_FATAL_FAILURE(expectRoundTrip(random.anyInt()));
    }
}

/// Numbers with a comma and grouped digits, as a process may have set them.
struct CommaAndGroups : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(NumberText, TheLocaleOfTheProcessChangesNothing) {
    const std::locale before =
        std::locale::global(std::locale(std::locale::classic(), new CommaAndGroups));
    std::setlocale(LC_NUMERIC, "de_DE.UTF-8");  // where the system has it
    EXPECT_EQ("0.5", textOf(0.5));
    EXPECT_EQ("1234567.5", textOf(1234567.5));
    EXPECT_TRUE(reads<double>("0.5"));
    EXPECT_FALSE(reads<double>("0,5"));
    std::setlocale(LC_NUMERIC, "C");
    std::locale::global(before);
}

}  // namespace
