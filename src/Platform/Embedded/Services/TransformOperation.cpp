// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Services/TransformOperation.h"

#include <algorithm>
#include <cmath>

namespace Sylvar3::internal::OvSylvarServices::Embedded {

namespace {

constexpr double kRadiansPerDegree = 3.14159265358979323846 / 180.0;

Imath::V3d vectorOf(const double* values) {
    return {values[0], values[1], values[2]};
}

Imath::M44d translationOf(const double* values) {
    return Imath::M44d().setTranslation(vectorOf(values));
}

/// An angle in degrees and an axis of any length; about one of length 0 nothing turns.
Imath::M44d rotationOf(const double* values) {
    const Imath::V3d axis = vectorOf(values + 1);
    const double longest = std::max({std::abs(axis.x), std::abs(axis.y), std::abs(axis.z)});
    if (longest == 0.0) {
        return {};
    }
    return Imath::M44d().setAxisAngle(axis / longest, values[0] * kRadiansPerDegree);
}

Imath::M44d scalingOf(const double* values) {
    return Imath::M44d().setScale(vectorOf(values));
}

Imath::M44d matrixOf(const double* values) {
    Imath::M44d matrix(Imath::UNINITIALIZED);
    std::copy_n(values, 16, matrix.getValue());
    return matrix;
}

constexpr TransformOperation kOperations[] = {
    {"translate", 3, translationOf},
    {"rotate", 4, rotationOf},
    {"scale", 3, scalingOf},
    {"matrix", 16, matrixOf},
    {"origin", 0, nullptr},
};

}  // namespace

const TransformOperation* TransformOperation::find(std::string_view name) {
    for (const TransformOperation& operation : kOperations) {
        if (name.substr(0, operation.prefix.size()) == operation.prefix) {
            return &operation;
        }
    }
    return nullptr;
}

}  // namespace Sylvar3::internal::OvSylvarServices::Embedded
