// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/MatrixValue.h"

namespace Sylvar3::internal::OvSylvar::Embedded {

Imath::M44d matrixAt(const NumberList& matrices, std::size_t sample, std::size_t place) {
    Imath::M44d matrix;
    for (std::size_t i = 0; i < kMatrixSize; ++i) {
        matrix.getValue()[i] = matrices.at(sample, place * kMatrixSize + i);
    }
    return matrix;
}

Imath::M44d power(Imath::M44d matrix, std::size_t exponent) {
    Imath::M44d result;
    for (; exponent > 0; exponent /= 2) {
        if (exponent % 2 == 1) {
            result *= matrix;
        }
        matrix *= matrix;
    }
    return result;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
