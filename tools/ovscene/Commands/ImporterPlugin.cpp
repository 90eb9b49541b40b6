// SPDX-License-Identifier: Apache-2.0
#include "Commands/ImporterPlugin.h"

#include <SylvarPlatform/PluginManager.h>

#include "ExitStatus.h"
#include "Scene/PluginFolders.h"

#include <algorithm>
#include <filesystem>
#include <strings.h>
#include <vector>

namespace ovscene {
namespace {

using Sylvar3::internal::OvPluginManager::PluginManager;

constexpr char kApi[] = OV_ASSET_IMPORTER_API_NAME;
constexpr unsigned kVersion = OV_ASSET_IMPORTER_VERSION;

/// Those that have a suite, in the manager's order.
std::vector<const OvAssetImporter*> importers() {
    std::vector<std::string> names;
    PluginManager::getPluginNames(kApi, names, kVersion);
    std::vector<const OvAssetImporter*> found;
    for (const std::string& name : names) {
        OvPluginStruct* const plugin = PluginManager::getPlugin(name, kApi, kVersion);
        if (const void* const suite = PluginManager::getPluginSuite(plugin)) {
            found.push_back(static_cast<const OvAssetImporter*>(suite));
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

std::string joined(const std::vector<std::string>& texts, const char* between) {
    std::string all;
    for (const std::string& text : texts) {
        all += (all.empty() ? "" : between) + text;
    }
    return all;
}

[[noreturn]] void throwNoImporter() {
    const std::string unusable = joined(unusablePlugins(), "; ");
    throw CommandError(ExitStatus::PluginUnusable,
                       "no importer plug-in; searched " +
                           joined(PluginManager::getSearchDirectories(), ", ") +
                           (unusable.empty() ? "" : "; " + unusable));
}

}  // namespace

const OvAssetImporter& findAssetImporter(const std::string& asset) {
    const std::vector<const OvAssetImporter*> all = importers();
    if (all.empty()) {
        throwNoImporter();
    }
    logUnusablePlugins();
    const auto wanted = std::find_if(all.begin(), all.end(), [&](const OvAssetImporter* importer) {
        return takes(*importer, asset);
    });
    return wanted == all.end() ? *all.front() : **wanted;
}

}  // namespace ovscene
