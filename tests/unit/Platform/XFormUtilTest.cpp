// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/XFormUtil.h>

#include "support/Transforms.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

using namespace Sylvar3::internal::OvAttribute;
using namespace Sylvar3::internal::OvSylvarServices;
using ovtest::doubles;
using ovtest::group;
using ovtest::Numbers;
using ovtest::samplesOf;
using ovtest::timed;
using testing::DoubleEq;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::Pointwise;

namespace {

using Children = std::vector<GroupAttribute::Child>;
using Times = std::vector<float>;

constexpr float kNoTime = std::numeric_limits<float>::quiet_NaN();
constexpr float kEndless = std::numeric_limits<float>::infinity();

const Numbers kIdentity = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

/// 16 values of which no two are equal.
Numbers counted(double first) {
    Numbers values;
    for (int i = 0; i < 16; ++i) {
        values.push_back(first + i);
    }
    return values;
}

/// One location, of those children.
GroupAttribute location(const Children& children) {
    return group({{"i0", group(children)}});
}

TransformMatrix atTime(const GroupAttribute& chain, float time = 0.0F) {
    return OvXFormUtil::CalcTransformMatrixAtTime(chain, time);
}
TransformMatrix atExistingTimes(const GroupAttribute& chain) {
    return OvXFormUtil::CalcTransformMatrixAtExistingTimes(chain);
}

/// The 16 values at a time; none when there is nothing to compute.
Numbers matrixOf(const GroupAttribute& chain, float time = 0.0F) {
    const auto samples = samplesOf(atTime(chain, time).attribute);
    return samples.empty() ? Numbers() : samples[0].second;
}

/// Where a point goes.
Numbers moved(const Numbers& point, const GroupAttribute& chain, float time = 0.0F) {
    const Numbers matrix = matrixOf(chain, time);
    Numbers result;
    for (std::size_t column = 0; column < 3; ++column) {
        result.push_back(point[0] * matrix[column] + point[1] * matrix[4 + column] +
                         point[2] * matrix[8 + column] + matrix[12 + column]);
    }
    return result;
}

Times timesOf(const GroupAttribute& chain) {
    Times times;
    for (const auto& [time, values] : samplesOf(atExistingTimes(chain).attribute)) {
        times.push_back(time);
    }
    return times;
}

auto near(const Numbers& expected) {
    return Pointwise(DoubleNear(1e-14), expected);
}

/// A translation of which the x at each time is told.
Attribute slide(const std::vector<std::pair<float, double>>& places) {
    ovtest::TimedNumbers samples;
    for (const auto& [time, x] : places) {
        samples.push_back({time, {x, 0, 0}});
    }
    return timed(samples);
}

double xAt(const GroupAttribute& chain, float time) {
    return matrixOf(chain, time)[12];
}

}  // namespace

// What a child does

TEST(TransformMatrixOfALocation, HasATranslationInItsLastRow) {
    const GroupAttribute chain = location({{"translate", doubles({2, 3, 4})}});
    EXPECT_EQ((Numbers{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 2, 3, 4, 1}), matrixOf(chain));
}

TEST(TransformMatrixOfALocation, HasAScaleOnItsDiagonal) {
    const GroupAttribute chain = location({{"scale", doubles({2, 3, 4})}});
    EXPECT_EQ((Numbers{2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 4, 0, 0, 0, 0, 1}), matrixOf(chain));
}

TEST(TransformMatrixOfALocation, IsAMatrixAsItStands) {
    EXPECT_EQ(counted(1), matrixOf(location({{"matrix", doubles(counted(1))}})));
}

TEST(TransformMatrixOfALocation, TurnsByDegreesCounterClockwiseAboutEachAxis) {
    EXPECT_THAT(moved({1, 2, 3}, location({{"rotate", doubles({90, 1, 0, 0})}})), near({1, -3, 2}));
    EXPECT_THAT(moved({1, 2, 3}, location({{"rotate", doubles({90, 0, 1, 0})}})), near({3, 2, -1}));
    EXPECT_THAT(moved({1, 2, 3}, location({{"rotate", doubles({90, 0, 0, 1})}})), near({-2, 1, 3}));
}

TEST(TransformMatrixOfALocation, TurnsAboutAnAxisBetweenTheOthers) {
    const GroupAttribute chain = location({{"rotate", doubles({120, 1, 1, 1})}});
    EXPECT_THAT(moved({1, 2, 3}, chain), near({3, 1, 2}));
}

TEST(TransformMatrixOfALocation, TurnsAboutAnAxisOfAnyLength) {
    const Numbers expected = matrixOf(location({{"rotate", doubles({30, 1, 2, 2})}}));
    for (const double length : {1e-200, 1e-3, 7.0, 1e200}) {
        const Attribute rotate = doubles({30, length, 2 * length, 2 * length});
        EXPECT_THAT(matrixOf(location({{"rotate", rotate}})), near(expected)) << length;
    }
}

TEST(TransformMatrixOfALocation, TurnsNothingAboutAnAxisOfNoLength) {
    EXPECT_EQ(kIdentity, matrixOf(location({{"rotate", doubles({90, 0, 0, 0})}})));
}

TEST(TransformMatrixOfALocation, GoesByThePrefixOfTheName) {
    const Attribute three = doubles({2, 3, 4});
    EXPECT_EQ(matrixOf(location({{"translate", three}})),
              matrixOf(location({{"translatePivot", three}})));
    EXPECT_EQ(matrixOf(location({{"scale", three}})), matrixOf(location({{"scale.1", three}})));
    const Attribute four = doubles({20, 0, 1, 0});
    EXPECT_EQ(matrixOf(location({{"rotate", four}})), matrixOf(location({{"rotateY", four}})));
    EXPECT_EQ(counted(1), matrixOf(location({{"matrix0", doubles(counted(1))}})));
    EXPECT_TRUE(atTime(location({{"origin2", IntAttribute(1)}})).isAbsolute);
}

TEST(TransformMatrixOfALocation, TakesIntegersFloatsAndDoubles) {
    const Numbers expected = matrixOf(location({{"translate", doubles({2, 3, 4})}}));
    const IntAttribute ints(std::vector<int>{2, 3, 4});
    const FloatAttribute floats(std::vector<float>{2, 3, 4});
    EXPECT_EQ(expected, matrixOf(location({{"translate", ints}})));
    EXPECT_EQ(expected, matrixOf(location({{"translate", floats}})));
}

TEST(TransformMatrixOfALocation, TakesNoNoticeOfFurtherValuesAndTheTupleSize) {
    const DoubleAttribute four({2, 3, 4, 5}, 2);
    EXPECT_EQ(matrixOf(location({{"translate", doubles({2, 3, 4})}})),
              matrixOf(location({{"translate", four}})));
}

TEST(TransformMatrixOfALocation, LetsValuesThatAreNotFiniteThrough) {
    Numbers values = counted(1);
    values[2] = std::numeric_limits<double>::infinity();
    values[13] = -values[2];
    EXPECT_EQ(values, matrixOf(location({{"matrix", doubles(values)}})));
    const double none = std::nan("");
    EXPECT_TRUE(std::isnan(matrixOf(location({{"translate", doubles({1, none, 3})}}))[13]));
    EXPECT_TRUE(std::isnan(matrixOf(location({{"rotate", doubles({none, 1, 0, 0})}}))[5]));
    EXPECT_TRUE(std::isnan(matrixOf(location({{"rotate", doubles({10, none, 0, 0})}}))[0]));
}

// The order of children and locations

TEST(TransformOrder, HasTheLaterChildActFirst) {
    const Attribute translate = doubles({1, 0, 0});
    const Attribute scale = doubles({2, 2, 2});
    EXPECT_THAT(moved({1, 0, 0}, location({{"translate", translate}, {"scale", scale}})),
                ElementsAre(3, 0, 0));
    EXPECT_THAT(moved({1, 0, 0}, location({{"scale", scale}, {"translate", translate}})),
                ElementsAre(4, 0, 0));
}

TEST(TransformOrder, HasALocationActBeforeThoseAboveIt) {
    const Attribute moves = group({{"translate", doubles({1, 0, 0})}});
    const Attribute grows = group({{"scale", doubles({2, 2, 2})}});
    EXPECT_THAT(moved({1, 0, 0}, group({{"i0", moves}, {"i1", grows}})), ElementsAre(3, 0, 0));
    EXPECT_THAT(moved({1, 0, 0}, group({{"i0", grows}, {"i1", moves}})), ElementsAre(4, 0, 0));
}

TEST(TransformOrder, IsThatOfOneLocationWithAllTheChildren) {
    const Children children = {{"translate", doubles({1, 2, 3})},
                               {"rotate", doubles({33, 1, 2, 3})},
                               {"matrix", doubles(counted(-7))},
                               {"scale", doubles({2, -1, 0.5})}};
    const GroupAttribute two = group(
        {{"i0", group({children[0], children[1]})}, {"i1", group({children[2], children[3]})}});
    EXPECT_EQ(matrixOf(location(children)), matrixOf(two));
}

TEST(TransformOrder, IsThatOfTheNumbersWhateverThePlaceInTheGroup) {
    Children ordered;
    for (int i = 0; i < 12; ++i) {
        ordered.emplace_back("i" + std::to_string(i), group({{"matrix", doubles(counted(i))}}));
    }
    const Children reversed(ordered.rbegin(), ordered.rend());
    EXPECT_EQ(matrixOf(group(ordered)), matrixOf(group(reversed)));
}

TEST(TransformOrder, PutsTenBehindNine) {
    const Attribute moves = group({{"translate", doubles({1, 0, 0})}});
    const Attribute grows = group({{"scale", doubles({2, 2, 2})}});
    EXPECT_THAT(moved({1, 0, 0}, group({{"i10", grows}, {"i9", moves}})), ElementsAre(3, 0, 0));
}

TEST(TransformOrder, HasGaps) {
    const Attribute moves = group({{"translate", doubles({1, 0, 0})}});
    const Attribute grows = group({{"scale", doubles({2, 2, 2})}});
    EXPECT_EQ(matrixOf(group({{"i0", moves}, {"i1", grows}})),
              matrixOf(group({{"i3", moves}, {"i4000000000", grows}})));
}

// Origin

TEST(TransformOrigin, ForgetsTheLocationsAboveAndTheChildrenBefore) {
    const GroupAttribute chain = group({{"i0", group({{"scale", doubles({2, 2, 2})}})},
                                        {"i1",
                                         group({{"translate", doubles({1, 0, 0})},
                                                {"origin", IntAttribute(1)},
                                                {"translate2", doubles({0, 5, 0})}})},
                                        {"i2", group({{"translate", doubles({0, 0, 7})}})}});
    EXPECT_THAT(moved({0, 0, 0}, chain), ElementsAre(0, 5, 7));
    EXPECT_TRUE(atTime(chain).isAbsolute);
    EXPECT_TRUE(atExistingTimes(chain).isAbsolute);
}

TEST(TransformOrigin, CountsTheLastTime) {
    const GroupAttribute chain = location({{"origin", IntAttribute(1)},
                                           {"translate", doubles({1, 0, 0})},
                                           {"origin2", IntAttribute(1)},
                                           {"translate2", doubles({0, 5, 0})}});
    EXPECT_THAT(moved({0, 0, 0}, chain), ElementsAre(0, 5, 0));
}

TEST(TransformOrigin, ForgetsTheTimesToo) {
    const GroupAttribute chain = location({{"translate", slide({{1, 1}, {2, 2}})},
                                           {"origin", timed({{5, {1}}, {6, {1}}})},
                                           {"translate2", slide({{3, 1}, {4, 2}})}});
    EXPECT_EQ((Times{3, 4}), timesOf(chain));
}

TEST(TransformOrigin, AloneIsTheIdentityAtTimeZero) {
    const GroupAttribute chain =
        location({{"translate", slide({{1, 1}, {2, 2}})}, {"origin", timed({{5, {1}}, {6, {1}}})}});
    EXPECT_EQ((ovtest::TimedNumbers{{0, kIdentity}}), samplesOf(atExistingTimes(chain).attribute));
    EXPECT_EQ(kIdentity, matrixOf(chain));
    EXPECT_TRUE(atTime(chain).isAbsolute);
}

TEST(TransformOrigin, IsNotLookedAt) {
    for (const Attribute& origin : std::vector<Attribute>{
             IntAttribute(0), FloatAttribute(std::vector<float>{}), timed({}), doubles({7, 8})}) {
        EXPECT_EQ(kIdentity, matrixOf(location({{"origin", origin}}))) << origin.getXML();
    }
}

TEST(TransformOrigin, MustBeOfNumbers) {
    for (const Attribute& origin :
         std::vector<Attribute>{Attribute(), StringAttribute("yes"), group({})}) {
        const GroupAttribute chain =
            location({{"translate", doubles({1, 0, 0})}, {"origin", origin}});
        EXPECT_THAT(moved({0, 0, 0}, chain), ElementsAre(1, 0, 0));
        EXPECT_FALSE(atTime(chain).isAbsolute);
    }
}

// What does not take part

TEST(TransformMatrixIsNull, WithoutAnythingThatTakesPart) {
    const Attribute good = group({{"translate", doubles({1, 2, 3})}});
    for (const GroupAttribute& chain : {GroupAttribute(),
                                        group({}),
                                        location({}),
                                        location({{"size", doubles({1, 2, 3})}}),
                                        group({{"x0", good}}),
                                        group({{"i", good}}),
                                        group({{"i-1", good}}),
                                        group({{"i1x", good}}),
                                        group({{"i 1", good}}),
                                        group({{"", good}}),
                                        group({{"i99999999999999999999", good}}),
                                        group({{"i0", Attribute()}}),
                                        group({{"i0", doubles({1, 2, 3})}}),
                                        group({{"i0", StringAttribute("translate")}})}) {
        EXPECT_FALSE(atTime(chain).attribute) << chain.getXML();
        EXPECT_FALSE(atExistingTimes(chain).attribute) << chain.getXML();
        EXPECT_FALSE(atTime(chain).isAbsolute) << chain.getXML();
    }
}

TEST(TransformMatrix, PassesOverWhatIsNoTransform) {
    const Attribute good = doubles({1, 2, 3});
    const Numbers expected = matrixOf(location({{"translate", good}}));
    for (const GroupAttribute::Child& other : Children{{"Translate2", doubles({1, 2, 3})},
                                                       {"tran", doubles({1, 2, 3})},
                                                       {"", doubles({1, 2, 3})},
                                                       {"xtranslate", doubles({1, 2, 3})},
                                                       {"translate2", Attribute()},
                                                       {"translate2", StringAttribute("1 2 3")},
                                                       {"translate2", group({{"translate", good}})},
                                                       {"translate2", doubles({1, 2})},
                                                       {"translate2", timed({})},
                                                       {"rotate", doubles({1, 2, 3})},
                                                       {"scale", doubles({1, 2})},
                                                       {"matrix", doubles(Numbers(15, 2.0))},
                                                       {"scale", timed({{kNoTime, {2, 2, 2}}})}}) {
        const GroupAttribute chain = location({{"translate", good}, other});
        EXPECT_EQ(expected, matrixOf(chain)) << chain.getXML();
        EXPECT_EQ((Times{0}), timesOf(chain)) << chain.getXML();
    }
}

// Times

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
    EXPECT_THAT(matrixOf(chain, 0.5F),
                near(matrixOf(location({{"rotate", doubles({45, 1, 1, 0})}}))));
}

TEST(TransformInterpolation, TurnsNothingWhereTheAxisPassesThroughZero) {
    const GroupAttribute chain =
        location({{"rotate", timed({{0, {90, 1, 0, 0}}, {1, {90, -1, 0, 0}}})}});
    EXPECT_EQ(kIdentity, matrixOf(chain, 0.5F));
}

TEST(TransformInterpolation, GoesByTheValuesOfAMatrix) {
    const GroupAttribute chain = location({{"matrix", timed({{0, counted(1)}, {1, counted(3)}})}});
    EXPECT_EQ(counted(2), matrixOf(chain, 0.5F));
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
