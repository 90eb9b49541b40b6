// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupAttribute.h>
#include <SylvarPlatform/SampleAccessor.h>

#include <Imath/ImathMatrix.h>

/// Matrices from attributes. Pure; any thread.
namespace SYLVAR {

/// The first 16 values of the sample nearest time 0, row after row; the identity when there are
/// fewer.
Imath::Matrix44<double> matrixNearTimeZero(
    const Sylvar3::internal::OvAttribute::DoubleAttribute& matrices);

/// What a group of transforms (`getGlobalXFormGroup`) comes to at time 0; the identity when it is
/// nothing.
Imath::Matrix44<double> GetGlobalMatrixAtTimeZero(
    const Sylvar3::internal::OvAttribute::GroupAttribute& xformGroup);

}  // namespace SYLVAR
