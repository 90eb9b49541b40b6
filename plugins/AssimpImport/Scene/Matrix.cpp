// SPDX-License-Identifier: Apache-2.0
#include "Scene/Matrix.h"

#include <assimp/matrix4x4.inl>

#include <algorithm>
#include <cmath>

namespace AssimpImport {
namespace {

using Vector = std::array<double, 3>;

constexpr double kShortest = 1e-12;

bool isFinite(const Matrix& matrix) {
    return std::all_of(matrix.begin(), matrix.end(), [](double v) { return std::isfinite(v); });
}

double dot(const Vector& a, const Vector& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vector cross(const Vector& a, const Vector& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

Vector direction(const Vector& vector, const Vector& otherwise) {
    const double length = std::sqrt(dot(vector, vector));
    if (!std::isfinite(length) || length < kShortest) {
        return otherwise;
    }
    return {vector[0] / length, vector[1] / length, vector[2] / length};
}

Vector widened(const aiVector3D& vector) {
    return {static_cast<double>(vector.x),
            static_cast<double>(vector.y),
            static_cast<double>(vector.z)};
}

// A direction across `forward`: away from `up`, or from the axis that it is least along.
Vector sideways(const Vector& forward, const Vector& up) {
    const Vector side = cross(forward, up);
    if (dot(side, side) > kShortest) {
        return direction(side, {1, 0, 0});
    }
    const Vector axis = std::abs(forward[1]) < 0.9 ? Vector{0, 1, 0} : Vector{0, 0, 1};
    return direction(cross(forward, axis), {1, 0, 0});
}

}  // namespace

Matrix toRows(const aiMatrix4x4& columns) {
    Matrix rows = {};
    for (unsigned int row = 0; row < 4; ++row) {
        for (unsigned int column = 0; column < 4; ++column) {
            rows[row * 4 + column] = static_cast<double>(columns[column][row]);
        }
    }
    return isFinite(rows) ? rows : kIdentity;
}

Matrix multiply(const Matrix& first, const Matrix& second) {
    Matrix product = {};
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            for (std::size_t i = 0; i < 4; ++i) {
                product[row * 4 + column] += first[row * 4 + i] * second[i * 4 + column];
            }
        }
    }
    return product;
}

Matrix uniformScale(double factor) {
    return {factor, 0, 0, 0, 0, factor, 0, 0, 0, 0, factor, 0, 0, 0, 0, 1};
}

Matrix turnToY(char axis) {
    if (axis == 'x') {
        return {0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    }
    if (axis == 'z') {
        return {1, 0, 0, 0, 0, 0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1};
    }
    return kIdentity;
}

Matrix turnFromY(char axis) {
    const Matrix turn = turnToY(axis);
    Matrix back = {};
    for (std::size_t i = 0; i < 16; ++i) {
        back[i] = turn[(i % 4) * 4 + i / 4];
    }
    return back;
}

Matrix frameAlong(const aiVector3D& position, const aiVector3D& forward, const aiVector3D& up) {
    const Vector z = direction(widened(forward), {0, 0, -1});
    const Vector x = sideways(z, direction(widened(up), {0, 1, 0}));
    const Vector y = cross(x, z);
    const Vector at = widened(position);
    Matrix frame = {
        x[0], x[1], x[2], 0, y[0], y[1], y[2], 0, -z[0], -z[1], -z[2], 0, at[0], at[1], at[2], 1};
    for (double& value : frame) {
        value += 0.0;  // -0 becomes 0
    }
    return isFinite(frame) ? frame : kIdentity;
}

double meanScale(const Matrix& m) {
    const Vector x = {m[0], m[1], m[2]};
    const Vector y = {m[4], m[5], m[6]};
    const Vector z = {m[8], m[9], m[10]};
    const double scale = std::cbrt(std::abs(dot(cross(x, y), z)));
    return std::isfinite(scale) && scale > 0.0 ? scale : 1.0;
}

}  // namespace AssimpImport
