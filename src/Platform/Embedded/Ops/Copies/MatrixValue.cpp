// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Copies/MatrixValue.h"

namespace Sylvar3::internal::OvSylvar::Embedded {

Imath::M44d matrixAt(const NumberList& matrices, std::size_t sample, std::size_t place) {
    Imath::M44d matrix;
    for (std::size_t i = 0; i < kMatrixSize; ++i) {
        matrix.getValue()[i] = matrices.at(sample, place * kMatrixSize + i);
    }
    return matrix;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
