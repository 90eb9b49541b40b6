// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AssetFormat.h"
#include "ImportRequest.h"

namespace AssimpImport {

/// The format of a file that is worth reading. Throws `ImportError` when its extension is not
/// taken, when it is missing, no plain file, unreadable, empty or too large, or when what it
/// announces would lead a reader astray.
const AssetFormat& checkAssetFile(const ImportRequest& request);

}  // namespace AssimpImport
