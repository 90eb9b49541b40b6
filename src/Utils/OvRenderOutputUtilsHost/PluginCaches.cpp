// SPDX-License-Identifier: Apache-2.0
#include "Utils/OvRenderOutputUtilsHost/PluginCaches.h"

#include <SylvarPlatform/PluginManager.h>
#include <SylvarPlatform/suites/RuntimeSuite.h>

#include <algorithm>
#include <string>
#include <vector>

namespace SYLVAR {
namespace {

using Sylvar3::internal::OvPluginManager::PluginManager;

void flushPlugins(const std::string& apiName, unsigned version) {
    std::vector<std::string> names;
    PluginManager::getPluginNames(apiName, names, version);
    for (const std::string& name : names) {
        if (OvPluginStruct* const plugin = PluginManager::getPlugin(name, apiName, version)) {
            PluginManager::flushSpecificPluginCache(plugin);
        }
    }
}

/// What the runtime has cooked belongs to the scenes that are open, and stays.
void flushApi(const std::string& apiName) {
    if (apiName == OV_RUNTIME_API_NAME) {
        return;
    }
    std::vector<int> versions;
    PluginManager::getPluginApiVersions(apiName, versions);
    for (const int version : versions) {
        flushPlugins(apiName, static_cast<unsigned>(version));
    }
}

}  // namespace

void flushPluginCaches(const char* apiName) {
    if (apiName && *apiName) {
        flushApi(apiName);
        return;
    }
    std::vector<std::string> apiNames;
    PluginManager::getApiNames(apiNames);
    std::for_each(apiNames.begin(), apiNames.end(), flushApi);
}

}  // namespace SYLVAR
