// SPDX-License-Identifier: Apache-2.0
#include "Camera/GlobalMatrix.h"

#include <SylvarPlatform/XFormUtil.h>

#include <algorithm>

namespace SYLVAR {

namespace OvAttribute = Sylvar3::internal::OvAttribute;
using Sylvar3::internal::OvSylvarServices::OvXFormUtil;

Imath::Matrix44<double> matrixNearTimeZero(const OvAttribute::DoubleAttribute& matrices) {
    constexpr std::int64_t kValues = 16;
    Imath::Matrix44<double> matrix;
    const OvAttribute::SampleAccessor<OvAttribute::DoubleAttribute> samples(matrices, 0.0F);
    if (samples.getNearest() && samples.getNumberOfValues() >= kValues) {
        std::copy_n(samples.getNearest(), kValues, matrix.getValue());
    }
    return matrix;
}

Imath::Matrix44<double> GetGlobalMatrixAtTimeZero(const OvAttribute::GroupAttribute& xformGroup) {
    return matrixNearTimeZero(OvXFormUtil::CalcTransformMatrixAtTime(xformGroup, 0.0F).attribute);
}

}  // namespace SYLVAR
