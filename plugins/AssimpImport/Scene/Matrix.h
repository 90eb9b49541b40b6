// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <assimp/matrix4x4.h>
#include <assimp/vector3.h>

#include <array>

namespace AssimpImport {

/// 4 rows of 4: points are rows on the left, the translation is row 3.
using Matrix = std::array<double, 16>;

constexpr Matrix kIdentity = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

/// The same transform in rows; the identity when it holds what is no finite number.
Matrix toRows(const aiMatrix4x4& columns);

/// `first` acts on a point before `second`.
Matrix multiply(const Matrix& first, const Matrix& second);

Matrix uniformScale(double factor);

/// Turns the axis 'x', 'y' or 'z' of a right-handed space to y.
Matrix turnToY(char axis);

/// Undoes `turnToY`.
Matrix turnFromY(char axis);

/// The frame at `position` whose -z looks along `forward`, with y as near `up` as it can be. What
/// has no direction is replaced by -z and y.
Matrix frameAlong(const aiVector3D& position, const aiVector3D& forward, const aiVector3D& up);

/// By how much a matrix enlarges lengths, on average; 1 where that is no positive finite number.
double meanScale(const Matrix& matrix);

}  // namespace AssimpImport
