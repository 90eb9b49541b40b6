// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ReferenceProjection.h"

#include <Imath/ImathMatrix.h>
#include <Imath/ImathVec.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <ios>

namespace ovtest {

/// Bit for bit; 0 and -0 differ. What is no number is equal to all that is none.
inline bool sameBits(double a, double b) {
    return (std::isnan(a) && std::isnan(b)) || std::memcmp(&a, &b, sizeof(a)) == 0;
}

inline testing::AssertionResult sameBits(const reference::Matrix& expected,
                                         const Imath::Matrix44<double>& found) {
    testing::AssertionResult failure = testing::AssertionFailure();
    bool isSame = true;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            const double value =
                expected[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
            if (!sameBits(value, found[row][column])) {
                isSame = false;
                failure << "m[" << row << "][" << column << "]: " << std::hexfloat
                        << found[row][column] << " instead of " << value << '\n';
            }
        }
    }
    return isSame ? testing::AssertionSuccess() : failure;
}

inline testing::AssertionResult sameBits(const reference::Point& expected,
                                         const Imath::Vec3<double>& found) {
    if (sameBits(expected[0], found.x) && sameBits(expected[1], found.y) &&
        sameBits(expected[2], found.z)) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << std::hexfloat << found << " instead of " << expected[0]
                                       << ' ' << expected[1] << ' ' << expected[2];
}

}  // namespace ovtest
