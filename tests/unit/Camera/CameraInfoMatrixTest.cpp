// SPDX-License-Identifier: Apache-2.0
// Matrices from attributes and from chains of transforms.
#include "Camera/GlobalMatrix.h"
#include "support/Transforms.h"

#include <gtest/gtest.h>

#include <numeric>

using namespace SYLVAR;
using namespace ovtest;

namespace {

Numbers countingFrom(double first, std::size_t count = 16) {
    Numbers values(count);
    std::iota(values.begin(), values.end(), first);
    return values;
}

const Imath::M44d kCounting(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);

}  // namespace

TEST(CameraInfoMatrix, HasTheSixteenValuesRowAfterRow) {
    EXPECT_EQ(kCounting, matrixNearTimeZero(doubles(countingFrom(1))));
}

TEST(CameraInfoMatrix, HasTheFirstSixteenOfMoreValues) {
    EXPECT_EQ(kCounting, matrixNearTimeZero(doubles(countingFrom(1, 32))));
}

TEST(CameraInfoMatrix, IsTheIdentityOfFewerThanSixteenValues) {
    EXPECT_EQ(Imath::M44d(), matrixNearTimeZero({}));
    for (const std::size_t count : {0U, 1U, 15U}) {
        EXPECT_EQ(Imath::M44d(), matrixNearTimeZero(doubles(countingFrom(1, count)))) << count;
    }
}

TEST(CameraInfoMatrix, IsTheSampleNearestTimeZeroAndTheFirstOfEquallyNearOnes) {
    struct Row {
        TimedNumbers samples;
        double first;
    };
    for (const Row& row : {Row{{{-2, countingFrom(100)}, {1, countingFrom(1)}}, 1},
                           Row{{{-1, countingFrom(1)}, {1, countingFrom(100)}}, 1},
                           Row{{{1, countingFrom(100)}, {-1, countingFrom(1)}}, 100},
                           Row{{{5, countingFrom(7)}, {4, countingFrom(8)}}, 8}}) {
        EXPECT_EQ(row.first, matrixNearTimeZero(timed(row.samples))[0][0]);
    }
}

TEST(GlobalMatrixAtTimeZero, IsTheIdentityOfNoTransforms) {
    EXPECT_EQ(Imath::M44d(), GetGlobalMatrixAtTimeZero({}));
    EXPECT_EQ(Imath::M44d(), GetGlobalMatrixAtTimeZero(group({})));
    EXPECT_EQ(Imath::M44d(), GetGlobalMatrixAtTimeZero(location({{"translate", doubles({1})}})));
}

TEST(GlobalMatrixAtTimeZero, HasItsTranslationInRowThree) {
    const Imath::M44d matrix =
        GetGlobalMatrixAtTimeZero(location({{"translate", doubles({1, 2, 3})}}));
    EXPECT_EQ(Imath::M44d(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 2, 3, 1), matrix);
}

TEST(GlobalMatrixAtTimeZero, IsInterpolatedWhereACamerasIsThatOfTheNearestSample) {
    const GroupAttribute chain = location({{"translate", slide({{-1, 0}, {3, 4}})}});
    EXPECT_EQ(1, GetGlobalMatrixAtTimeZero(chain)[3][0]);
    EXPECT_EQ(0, matrixNearTimeZero(atExistingTimes(chain).attribute)[3][0]);
}
