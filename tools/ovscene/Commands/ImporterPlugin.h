// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/AssetImporter.h>

#include <string>

namespace ovscene {

/// Loads the asset importer, AssimpImport.so, from the first folder that has it: those of
/// `pluginPath`, those of the environment variable OVSCENE_PLUGIN_PATH (both are lists with colons
/// between their folders), then the one that belongs to this program. It stays loaded.
///
/// Throws PluginUnusable: with the folders searched when there is none, with the reason when it
/// cannot be used.
const OvAssetImporter& loadAssetImporter(const std::string& pluginPath);

}  // namespace ovscene
