// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AssetFormat.h"
#include "ImportRequest.h"

namespace AssimpImport {

/// The format of a file that is worth reading. Throws `ImportError` when its extension is not
/// taken, it is missing, no plain file, unreadable, empty or too large, or when its header
/// promises more than it can hold.
const AssetFormat& checkAssetFile(const ImportRequest& request);

}  // namespace AssimpImport
