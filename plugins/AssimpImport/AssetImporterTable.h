// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace AssimpImport {

/// The importer's table, an `OvAssetImporter`.
const void* assetImporter();

}  // namespace AssimpImport
