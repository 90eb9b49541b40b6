// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/Op.h"

namespace Sylvar3::internal::OvSylvar::Embedded {

/// @name The platform's own op types, each for the life of the process
/// @{
const OpType& generateOpType();
const OpType& loadOpType();
const OpType& mergeOpType();
const OpType& sceneOpType();
const OpType& setAttributesOpType();
/// @}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
