// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/Op.h"

namespace Sylvar3::internal::OvSylvar::Embedded {

/// @name The platform's own op types, each for the life of the process
/// @{
const OpType& assignMaterialOpType();
const OpType& cameraOpType();
const OpType& deleteAttributesOpType();
const OpType& duplicateOpType();
const OpType& generateOpType();
const OpType& instanceOpType();
const OpType& isolateOpType();
const OpType& lightOpType();
const OpType& loadOpType();
const OpType& mergeOpType();
const OpType& mountOpType();
const OpType& pruneOpType();
const OpType& renderSettingsOpType();
const OpType& sceneOpType();
const OpType& setAttributesOpType();
const OpType& transformOpType();
/// @}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
