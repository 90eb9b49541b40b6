// SPDX-License-Identifier: Apache-2.0
#include "Commands/ImporterPlugin.h"

#include "Scene/PluginFolders.h"
#include "Scene/PluginTables.h"

#include <algorithm>
#include <filesystem>
#include <strings.h>
#include <vector>

namespace ovscene {
namespace {

constexpr char kApi[] = OV_ASSET_IMPORTER_API_NAME;
constexpr unsigned kVersion = OV_ASSET_IMPORTER_VERSION;

/// Those that have a suite, in the manager's order.
std::vector<const OvAssetImporter*> importers() {
    std::vector<const OvAssetImporter*> found;
    for (const std::string& name : pluginNames(kApi, kVersion)) {
        if (const void* const table = pluginTable(name, kApi, kVersion)) {
            found.push_back(static_cast<const OvAssetImporter*>(table));
        }
    }
    return found;
}

bool takes(const OvAssetImporter& importer, const std::string& asset) {
    const std::string extension = std::filesystem::path(asset).extension().string();
    for (const char* const* one = importer.extensions; one && *one; ++one) {
        if (!extension.empty() && ::strcasecmp(*one, extension.c_str() + 1) == 0) {
            return true;
        }
    }
    return false;
}

}  // namespace

const OvAssetImporter& findAssetImporter(const std::string& asset) {
    const std::vector<const OvAssetImporter*> all = importers();
    if (all.empty()) {
        throwNoPlugin("importer");
    }
    logUnusablePlugins();
    const auto wanted = std::find_if(all.begin(), all.end(), [&](const OvAssetImporter* importer) {
        return takes(*importer, asset);
    });
    return wanted == all.end() ? *all.front() : **wanted;
}

}  // namespace ovscene
