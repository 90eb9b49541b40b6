// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/AssetImporter.h>

#include <string>

namespace ovscene {

/// The importer for an asset: of the plug-ins that the manager lists, the first one that takes the
/// asset's extension. When none does, the first one, which will tell that.
///
/// Throws PluginUnusable when there is none, with the folders searched and what cannot be used
/// there; otherwise the latter is logged.
const OvAssetImporter& findAssetImporter(const std::string& asset);

}  // namespace ovscene
