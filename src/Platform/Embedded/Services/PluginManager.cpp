// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/PluginManager.h>

#include "Platform/Embedded/Services/PluginRegistry.h"
#include "Platform/Support/OnceBuilt.h"

#include <atomic>
#include <memory>
#include <set>
#include <utility>

namespace Sylvar3::internal::OvPluginManager {

using Embedded::Plugin;
using Embedded::PluginRegistry;

namespace {

PluginRegistry& registry() {
    static Support::OnceBuilt<PluginRegistry> state;
    return state.get();
}

/// Null: the table of this process.
std::atomic<const OvHostTable*> hostTable{nullptr};

const OvHostTable* hostForPlugins() {
    const OvHostTable* host = hostTable.load(std::memory_order_acquire);
    return host ? host : OvGetHostTable();
}

bool serves(const Plugin& plugin, const std::string& apiName, unsigned int version) {
    return static_cast<unsigned int>(plugin.apiVersion()) == version && plugin.apiName() == apiName;
}

}  // namespace

void PluginManager::getApiNames(std::vector<std::string>& names) {
    const auto listing = registry().listing();
    std::set<std::string> known = {"SylvarRuntime"};
    for (const Plugin* plugin : listing->plugins) {
        known.insert(plugin->apiName());
    }
    names.assign(known.begin(), known.end());
}

void PluginManager::getPluginApiVersions(const std::string& apiName, std::vector<int>& versions) {
    const auto listing = registry().listing();
    std::set<int> known;
    for (const Plugin* plugin : listing->plugins) {
        if (plugin->apiName() == apiName) {
            known.insert(plugin->apiVersion());
        }
    }
    versions.assign(known.begin(), known.end());
}

void PluginManager::getPluginNames(const std::string& apiName,
                                   std::vector<std::string>& names,
                                   unsigned int version) {
    const auto listing = registry().listing();
    std::vector<std::string> found;  // `apiName` may be one of `names`.
    for (const Plugin* plugin : listing->plugins) {
        if (serves(*plugin, apiName, version)) {
            found.push_back(plugin->name());
        }
    }
    names = std::move(found);
}

OvPluginStruct* PluginManager::getPlugin(const std::string& pluginName,
                                         const std::string& apiName,
                                         unsigned int version) {
    const auto listing = registry().listing();
    for (const Plugin* plugin : listing->plugins) {
        if (plugin->name() == pluginName && serves(*plugin, apiName, version)) {
            return plugin->handle();
        }
    }
    return nullptr;
}

const void* PluginManager::getPluginSuite(OvPluginStruct* plugin) {
    Plugin* known = registry().find(plugin);
    return known ? known->suite(hostForPlugins()) : nullptr;
}

void PluginManager::flushSpecificPluginCache(OvPluginStruct* plugin) {
    if (const Plugin* known = registry().find(plugin)) {
        known->flush();
    }
}

void PluginManager::setSearchDirectories(const std::vector<std::string>& directories) {
    registry().setDirectories(directories);
}

void PluginManager::appendSearchDirectory(const std::string& directory) {
    registry().appendDirectory(directory);
}

std::vector<std::string> PluginManager::getSearchDirectories() {
    return registry().directories();
}

std::string PluginManager::registerPlugin(OvPluginStruct* plugin, PluginPlace place) {
    return registry().add(plugin, place);
}

void PluginManager::setHostTable(const OvHostTable* host) {
    hostTable.store(host, std::memory_order_release);
}

std::vector<RejectedPlugin> PluginManager::getRejectedPlugins() {
    return registry().rejected();
}

}  // namespace Sylvar3::internal::OvPluginManager
