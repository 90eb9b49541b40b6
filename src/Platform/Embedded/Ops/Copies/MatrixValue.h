// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Ops/NumberList.h"
#include "Platform/Embedded/Runtime/LocationWriter.h"

#include <Imath/ImathMatrix.h>

#include <algorithm>
#include <cstddef>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// Numbers of a matrix, row by row; points are rows.
constexpr std::size_t kMatrixSize = 16;

/// The matrix at a place in a list of matrices.
Imath::M44d matrixAt(const NumberList& matrices, std::size_t sample, std::size_t place);

/// A new value with the samples of `times`: `matrixOf(sample)` is the `Imath::M44d` of each.
template <class MatrixOf>
LocationWriter::Value* addMatrix(const NumberList& times, LocationWriter& out, MatrixOf matrixOf) {
    OvAttribute::Embedded::DataShape shape{OV_ATTRIBUTE_DOUBLE};
    shape.tupleSize = kMatrixSize;
    shape.valueCount = kMatrixSize;
    shape.sampleCount = static_cast<std::int64_t>(times.sampleCount());
    shape.times = times.times();
    LocationWriter::DataValue* const value = out.addData(shape);
    auto* to = static_cast<double*>(value->values());
    for (std::size_t sample = 0; sample < times.sampleCount(); ++sample) {
        const Imath::M44d matrix = matrixOf(sample);
        to = std::copy_n(matrix.getValue(), kMatrixSize, to);
    }
    return value;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
