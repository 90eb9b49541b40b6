// SPDX-License-Identifier: Apache-2.0
#include "Scene/PluginTables.h"

#include <SylvarPlatform/PluginManager.h>

#include "ExitStatus.h"
#include "Print/JoinedText.h"
#include "Scene/PluginFolders.h"

namespace ovscene {
namespace {

using Sylvar3::internal::OvPluginManager::PluginManager;
using Sylvar3::internal::OvPluginManager::RejectedPlugin;

}  // namespace

std::vector<std::string> pluginNames(const char* api, unsigned version) {
    std::vector<std::string> names;
    PluginManager::getPluginNames(api, names, version);
    return names;
}

const void* pluginTable(const std::string& name, const char* api, unsigned version) {
    return PluginManager::getPluginSuite(PluginManager::getPlugin(name, api, version));
}

std::string pluginFault(const std::string& name) {
    std::string reason;
    for (const RejectedPlugin& rejected : PluginManager::getRejectedPlugins()) {
        reason = rejected.plugin == name ? rejected.reason : reason;  // the last one is news
    }
    return reason;
}

void throwNoPlugin(const std::string& kind) {
    const std::string unusable = joined(unusablePlugins(), "; ");
    throw CommandError(ExitStatus::PluginUnusable,
                       "no " + kind + " plug-in; searched " +
                           joined(PluginManager::getSearchDirectories()) +
                           (unusable.empty() ? "" : "; " + unusable));
}

}  // namespace ovscene
