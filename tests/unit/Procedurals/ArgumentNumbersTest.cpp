// SPDX-License-Identifier: Apache-2.0
#include "ProceduralTest.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

using namespace ovtest;

namespace {

template <class Number, class Bits>
Number ofBits(Bits bits) {
    static_assert(sizeof(Number) == sizeof(Bits), "each bit counts");
    Number number;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

std::string printed(double number) {
    char text[64];
    std::snprintf(text, sizeof text, "%.12g", number);
    return text;
}

template <class Number>
std::vector<Number> ends() {
    using Limits = std::numeric_limits<Number>;
    return {Limits::infinity(),
            Limits::quiet_NaN(),
            Limits::max(),
            Limits::min(),
            Limits::epsilon(),
            Limits::denorm_min(),
            Number(0),
            Number(1)};
}

/// And the same below zero.
template <class Number>
std::vector<Number> withNegatives(std::vector<Number> numbers) {
    const std::size_t count = numbers.size();
    for (std::size_t i = 0; i < count; ++i) {
        numbers.push_back(-numbers[i]);
    }
    return numbers;
}

/// Where the form of the text changes, and halfway between two texts.
std::vector<double> borders() {
    std::vector<double> numbers;
    for (const double base : {1e-5,
                              1e-4,
                              1e11,
                              1e12,
                              1e13,
                              1e15,
                              0.5,
                              1.0,
                              123456789012.5,
                              999999999999.5,
                              99999999999.95,
                              0.0000999999999995,
                              1.000000000005,
                              2.000000000015,
                              0.1,
                              1.0 / 3}) {
        numbers.push_back(base);
        numbers.push_back(std::nextafter(base, 0.0));
        numbers.push_back(std::nextafter(base, 1e300));
    }
    for (int exponent = -323; exponent <= 308; ++exponent) {
        numbers.push_back(std::pow(10.0, exponent));
        numbers.push_back(9.999999999995 * std::pow(10.0, exponent));
    }
    return numbers;
}

}  // namespace

class ArgumentNumbers : public ProceduralTest {
protected:
    template <class NumberAttribute, class Number>
    void expectPrinted(const std::vector<Number>& numbers) {
        ASSERT_STREQ("C", std::setlocale(LC_ALL, nullptr));
        const std::string text = classicArgs({{"a", NumberAttribute(numbers)}});
        ASSERT_EQ(" -a", text.substr(0, 3));
        std::size_t at = 3;
        for (const Number number : numbers) {
            const std::string expected = " " + printed(static_cast<double>(number));
            ASSERT_EQ(expected, text.substr(at, expected.size()));
            at += expected.size();
        }
        EXPECT_EQ(text.size(), at);
    }
};

TEST_F(ArgumentNumbers, HaveTwelveDigitsAtMostAndNoZerosBehind) {
    const std::vector<double> numbers = {
        0.5, 24, -0.0, 1e-5, 1e-4, 1e11, 1e12, 123456789012.75, 16777216, 1e20, 2.0 / 3};
    EXPECT_EQ(
        " -a 0.5 24 -0 1e-05 0.0001 100000000000 1e+12 123456789013 16777216 1e+20 0.666666666667",
        classicArgs({{"a", DoubleAttribute(numbers)}}));
}

TEST_F(ArgumentNumbers, OfAFloatAreThoseOfTheDoubleThatItIs) {
    EXPECT_EQ(" -a 0.10000000149", classicArgs({{"a", FloatAttribute(0.1F)}}));
    EXPECT_EQ(" -a 0.1", classicArgs({{"a", DoubleAttribute(0.1)}}));
}

TEST_F(ArgumentNumbers, MayBeInfiniteOrNone) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const double nan = std::copysign(std::numeric_limits<double>::quiet_NaN(), 1.0);
    EXPECT_EQ(
        " -a inf -inf nan -nan",
        classicArgs(
            {{"a", DoubleAttribute({kInfinity, -kInfinity, nan, std::copysign(nan, -1.0)})}}));
}

TEST_F(ArgumentNumbers, AreAsPrintedAtTheEndsOfTheirRange) {
    expectPrinted<FloatAttribute>(withNegatives(ends<float>()));
    expectPrinted<DoubleAttribute>(withNegatives(ends<double>()));
}

TEST_F(ArgumentNumbers, AreAsPrintedWhereTheirFormChanges) {
    expectPrinted<DoubleAttribute>(withNegatives(borders()));
}

TEST_F(ArgumentNumbers, AreAsPrintedOverAllFloats) {
    constexpr std::uint64_t kStride = 40503;  // odd, and so all low bits come up
    std::vector<float> numbers;
    for (std::uint64_t bits = 0; bits <= UINT32_MAX; bits += kStride) {
        numbers.push_back(ofBits<float>(static_cast<std::uint32_t>(bits)));
    }
    expectPrinted<FloatAttribute>(numbers);
}

TEST_F(ArgumentNumbers, AreAsPrintedOverAllDoubles) {
    std::mt19937_64 random(1);
    std::vector<double> numbers;
    for (int i = 0; i < 100000; ++i) {
        numbers.push_back(ofBits<double>(static_cast<std::uint64_t>(random())));
    }
    expectPrinted<DoubleAttribute>(numbers);
}

TEST_F(ArgumentNumbers, OfTheContextAreWrittenInTheSameWay) {
    for (const float number : withNegatives(ends<float>())) {
        context = {1, number, 1, {0, number, 1, number}, 0, 0};
        const std::string text = printed(static_cast<double>(number));
        EXPECT_EQ(" -frame 1 -shutter " + text + " 1 -cropwindow 0 " + text + " 1 " + text,
                  classic(group({})));
    }
}

TEST_F(ArgumentNumbers, OfTheFrameAreWholeOverAllInts) {
    for (const int frame :
         {0, -1, 1000000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        context.frame = frame;
        EXPECT_EQ(" -frame " + std::to_string(frame) + " -shutter 0 0 -cropwindow 0 0 0 0",
                  classic(group({})));
    }
}
