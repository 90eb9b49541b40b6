// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace ovscene {

/// Appends the folders of a list with colons between them; empty ones are left out.
void appendFolders(std::vector<std::string>& folders, const std::string& list);

/// The folders that every search has before those of the environment; none at first. For the whole
/// program, before it has threads.
void setFirstPluginFolders(const std::vector<std::string>& folders);

/// Lets the plug-in manager search `folders`, then those above, then those of the environment
/// variable OVSCENE_PLUGIN_PATH, then the one that belongs to this program, and load what is there.
void searchPlugins(std::vector<std::string> folders = {});

/// The files that cannot be used, and the plug-ins that fail, each with its reason. Folders that
/// cannot be read are left out.
std::vector<std::string> unusablePlugins();

/// Logs them, each once: a file of which nothing can be used as a warning, a plug-in for debugging,
/// since it may well be one that another of its name is meant to replace.
void logUnusablePlugins();

}  // namespace ovscene
