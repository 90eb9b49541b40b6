// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Commands/PluginOffers.h"

#include <string>
#include <vector>

namespace ovscene {

/// A plug-in, and what it gives, once that was asked.
struct PluginEntry {
    ListedPlugin plugin;
    std::string offer;
};

/// The types of location that a renderer finds a delegate for; "" stands for any renderer.
struct DelegatesOfRenderer {
    std::string renderer;
    std::vector<std::string> types;
};

/// The plug-ins that this program finds.
struct PluginsView {
    bool isExplained = false;  ///< Otherwise there are no offers and no delegates.
    std::vector<std::string> folders;
    std::vector<PluginEntry> plugins;
    std::vector<DelegatesOfRenderer> delegates;  ///< Of renderers that have some.
    std::vector<RejectedPlugin> rejected;
};

/// Searches for plug-ins; to explain them, asks each for its table too. What they print meanwhile
/// goes to the error stream.
PluginsView pluginsView(bool explain);

}  // namespace ovscene
