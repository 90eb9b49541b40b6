// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>

namespace Sylvar3::internal::OvSylvarServices::Embedded {

/// A matrix of 4 rows of 4, for row vectors: a point is a row on the left, the translation stands
/// in row 3.
using Matrix4 = std::array<double, 16>;

constexpr Matrix4 kIdentity = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

/// The transform that does first `a`, then `b`.
Matrix4 product(const Matrix4& a, const Matrix4& b);

/// Each reads as many values as it has: 16, 3, 3; for the rotation an angle in degrees and an axis
/// of any length, about which it turns by the right hand, or not at all when its length is 0.
Matrix4 matrixOf(const double* values);
Matrix4 translationOf(const double* values);
Matrix4 scalingOf(const double* values);
Matrix4 rotationOf(const double* angleAndAxis);

}  // namespace Sylvar3::internal::OvSylvarServices::Embedded
