// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

/// Plug-ins and the tables that they give, among those that the last search found.
namespace ovscene {

/// Their names, in the plug-in manager's order.
std::vector<std::string> pluginNames(const char* api, unsigned version);

/// The plug-in's table, whose form its API tells; null when it has none.
const void* pluginTable(const std::string& name, const char* api, unsigned version);

/// Why that plug-in has no table, once it was asked for; "" when nothing is known.
std::string pluginFault(const std::string& name);

/// Throws PluginUnusable, "no <kind> plug-in", with the folders searched and what cannot be used
/// there.
[[noreturn]] void throwNoPlugin(const std::string& kind);

}  // namespace ovscene
