// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/OpTypes.h"

#include "Platform/Embedded/Runtime/OpTypeTable.h"

namespace Sylvar3::internal::OvSylvar::Embedded {

std::vector<const OpType*> builtInOpTypes() {
    return {
        &assignMaterialOpType(),
        &cameraOpType(),
        &deleteAttributesOpType(),
        &duplicateOpType(),
        &generateOpType(),
        &instanceOpType(),
        &isolateOpType(),
        &lightOpType(),
        &loadOpType(),
        &mergeOpType(),
        &mountOpType(),
        &pruneOpType(),
        &renderSettingsOpType(),
        &sceneOpType(),
        &setAttributesOpType(),
        &transformOpType(),
    };
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
