// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Attributes/SuiteHandle.h"
#include "ImportRequest.h"

namespace AssimpImport {

/// The asset of a request as a static scene, whose top is the location /root: the file's root node
/// below it, and its materials in "materials". Throws `ImportError`.
SuiteHandle importScene(const ImportRequest& request);

}  // namespace AssimpImport
