// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Services/Matrix4.h"

#include <algorithm>
#include <cmath>

namespace Sylvar3::internal::OvSylvarServices::Embedded {

namespace {

constexpr double kRadiansPerDegree = 3.14159265358979323846 / 180.0;

}  // namespace

Matrix4 product(const Matrix4& a, const Matrix4& b) {
    Matrix4 result;
    for (std::size_t row = 0; row < 16; row += 4) {
        for (std::size_t column = 0; column < 4; ++column) {
            result[row + column] = a[row] * b[column] + a[row + 1] * b[4 + column] +
                                   a[row + 2] * b[8 + column] + a[row + 3] * b[12 + column];
        }
    }
    return result;
}

Matrix4 matrixOf(const double* values) {
    Matrix4 result;
    std::copy_n(values, result.size(), result.begin());
    return result;
}

Matrix4 translationOf(const double* values) {
    return {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, values[0], values[1], values[2], 1};
}

Matrix4 scalingOf(const double* values) {
    return {values[0], 0, 0, 0, 0, values[1], 0, 0, 0, 0, values[2], 0, 0, 0, 0, 1};
}

Matrix4 rotationOf(const double* angleAndAxis) {
    const double* const axis = angleAndAxis + 1;
    const double length = std::hypot(axis[0], axis[1], axis[2]);
    if (length == 0.0) {
        return kIdentity;
    }
    const double x = axis[0] / length;
    const double y = axis[1] / length;
    const double z = axis[2] / length;
    const double s = std::sin(angleAndAxis[0] * kRadiansPerDegree);
    const double c = std::cos(angleAndAxis[0] * kRadiansPerDegree);
    const double d = 1.0 - c;
    return {d * x * x + c,
            d * x * y + s * z,
            d * x * z - s * y,
            0,
            d * x * y - s * z,
            d * y * y + c,
            d * y * z + s * x,
            0,
            d * x * z + s * y,
            d * y * z - s * x,
            d * z * z + c,
            0,
            0,
            0,
            0,
            1};
}

}  // namespace Sylvar3::internal::OvSylvarServices::Embedded
