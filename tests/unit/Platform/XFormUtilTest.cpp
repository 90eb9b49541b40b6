// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/XFormUtil.h>

#include "support/Transforms.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

using namespace ovtest;
using Sylvar3::internal::OvAttribute::FloatAttribute;
using Sylvar3::internal::OvAttribute::IntAttribute;
using Sylvar3::internal::OvAttribute::StringAttribute;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::Pointwise;

namespace {

constexpr float kNoTime = std::numeric_limits<float>::quiet_NaN();

const Numbers kIdentity = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

/// 16 values of which no two are equal.
Numbers counted(double first) {
    Numbers values;
    for (int i = 0; i < 16; ++i) {
        values.push_back(first + i);
    }
    return values;
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

auto near(const Numbers& expected) {
    return Pointwise(DoubleNear(1e-14), expected);
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
    EXPECT_EQ((TimedNumbers{{0, kIdentity}}), samplesOf(atExistingTimes(chain).attribute));
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
