// SPDX-License-Identifier: Apache-2.0
#include "Commands/PluginsView.h"

#include "Print/Output.h"
#include "Scene/LocationDelegates.h"
#include "Scene/PluginFolders.h"

#include <set>
#include <utility>

namespace ovscene {
namespace {

void explainAll(PluginsView& view) {
    std::set<std::string> renderers = {""};
    for (PluginEntry& entry : view.plugins) {
        PluginOffer offer = offerOf(entry.plugin);
        entry.offer = std::move(offer.text);
        renderers.merge(offer.renderers);
    }
    for (const std::string& renderer : renderers) {
        std::vector<std::string> types = typesWithDelegates(renderer);
        if (!types.empty()) {
            view.delegates.push_back({renderer, std::move(types)});
        }
    }
}

}  // namespace

PluginsView pluginsView(bool explain) {
    const ForeignOutputAside aside;
    searchPlugins();
    PluginsView view;
    view.isExplained = explain;
    view.folders = pluginFolders();
    for (ListedPlugin& plugin : listedPlugins()) {
        view.plugins.push_back({std::move(plugin), ""});
    }
    if (explain) {
        explainAll(view);
    }
    view.rejected = rejectedPlugins();
    return view;
}

}  // namespace ovscene
