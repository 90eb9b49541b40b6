// SPDX-License-Identifier: Apache-2.0
#include "Scene/PluginList.h"

#include <algorithm>
#include <utility>

namespace ovscene {
namespace {

using Sylvar3::internal::OvPluginManager::PluginManager;

/// The loader's reasons begin with the file's name.
std::string withoutFile(const std::string& reason, const std::string& file) {
    const std::string start = file + ": ";
    return reason.rfind(start, 0) == 0 ? reason.substr(start.size()) : reason;
}

void append(const std::string& api, int version, std::vector<ListedPlugin>& all) {
    std::vector<std::string> names;
    PluginManager::getPluginNames(api, names, static_cast<unsigned>(version));
    for (std::string& name : names) {
        all.push_back({api, version, std::move(name)});
    }
}

}  // namespace

std::vector<ListedPlugin> listedPlugins() {
    std::vector<std::string> apis;
    PluginManager::getApiNames(apis);
    std::vector<ListedPlugin> all;
    for (const std::string& api : apis) {
        std::vector<int> versions;
        PluginManager::getPluginApiVersions(api, versions);
        for (const int version : versions) {
            append(api, version, all);
        }
    }
    return all;
}

std::vector<RejectedPlugin> rejectedPlugins() {
    std::vector<RejectedPlugin> all = PluginManager::getRejectedPlugins();
    for (RejectedPlugin& rejected : all) {
        rejected.reason = withoutFile(rejected.reason, rejected.file);
    }
    std::stable_sort(
        all.begin(), all.end(), [](const auto& a, const auto& b) { return a.file < b.file; });
    return all;
}

std::vector<std::string> pluginFolders() {
    return PluginManager::getSearchDirectories();
}

}  // namespace ovscene
