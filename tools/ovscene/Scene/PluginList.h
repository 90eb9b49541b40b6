// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/PluginManager.h>

#include <string>
#include <vector>

/// All that the last search for plug-ins found. Names may hold any bytes.
namespace ovscene {

using Sylvar3::internal::OvPluginManager::RejectedPlugin;

/// One plug-in, as the manager knows it.
struct ListedPlugin {
    std::string api;
    int version = 0;
    std::string name;
};

/// By API and version, ascending, and those of one in the order in which they are taken.
std::vector<ListedPlugin> listedPlugins();

/// What cannot be used, folders included, by file. Plug-ins that fail when they are asked for their
/// table stand there once that was done.
std::vector<RejectedPlugin> rejectedPlugins();

/// The folders that were searched, in their order.
std::vector<std::string> pluginFolders();

}  // namespace ovscene
