// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/PluginManager.h>

#include <algorithm>
#include <string>
#include <vector>

namespace plugins {

using Sylvar3::internal::OvPluginManager::PluginManager;
using Sylvar3::internal::OvPluginManager::PluginPlace;
using Sylvar3::internal::OvPluginManager::RejectedPlugin;

inline std::string folder(const std::string& name) {
    return OV_TEST_FIXTURE_DIR "/" + name;
}

inline std::vector<std::string> apiNames() {
    std::vector<std::string> names = {"what was there"};
    PluginManager::getApiNames(names);
    return names;
}

inline std::vector<int> versionsOf(const std::string& api) {
    std::vector<int> versions = {99};
    PluginManager::getPluginApiVersions(api, versions);
    return versions;
}

inline std::vector<std::string> namesOf(const std::string& api, unsigned int version) {
    std::vector<std::string> names = {"what was there"};
    PluginManager::getPluginNames(api, names, version);
    return names;
}

/// The suite of a plug-in that may not exist.
inline const void* suiteOf(const std::string& name, const std::string& api, unsigned int version) {
    return PluginManager::getPluginSuite(PluginManager::getPlugin(name, api, version));
}

/// The reason for which a file, or one of its plug-ins, was rejected; empty when it was not.
inline std::string reasonFor(const std::string& file, const std::string& plugin) {
    const std::vector<RejectedPlugin> all = PluginManager::getRejectedPlugins();
    const auto found = std::find_if(all.begin(), all.end(), [&](const RejectedPlugin& one) {
        return one.file == file && one.plugin == plugin;
    });
    return found == all.end() ? std::string() : found->reason;
}

/// A struct as a plug-in in process has it.
inline OvPluginStruct described(const char* name, const char* api, const void* (*getSuite)()) {
    return {sizeof(OvPluginStruct), OV_PLUGIN_VERSION, name, api, 1, 0, nullptr, getSuite, nullptr};
}

}  // namespace plugins
