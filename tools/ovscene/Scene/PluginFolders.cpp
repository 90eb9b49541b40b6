// SPDX-License-Identifier: Apache-2.0
#include "Scene/PluginFolders.h"

#include <SylvarPlatform/Logging.h>
#include <SylvarPlatform/PluginManager.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <sstream>
#include <system_error>
#include <utility>

namespace ovscene {
namespace {

using Sylvar3::internal::OvPluginManager::PluginManager;
using Sylvar3::internal::OvPluginManager::RejectedPlugin;

constexpr char kPathVariable[] = "OVSCENE_PLUGIN_PATH";

std::vector<std::string>& firstFolders() {
    static std::vector<std::string> folders;
    return folders;
}

std::vector<RejectedPlugin> rejectedFiles() {
    const std::vector<std::string> folders = PluginManager::getSearchDirectories();
    std::vector<RejectedPlugin> all = PluginManager::getRejectedPlugins();
    const auto isFolder = [&](const RejectedPlugin& rejected) {
        return std::find(folders.begin(), folders.end(), rejected.file) != folders.end();
    };
    all.erase(std::remove_if(all.begin(), all.end(), isFolder), all.end());
    return all;
}

std::string describe(const RejectedPlugin& rejected) {
    if (rejected.reason.rfind(rejected.file, 0) == 0) {  // the loader names the file itself
        return rejected.reason;
    }
    const std::string plugin = rejected.plugin.empty() ? "" : rejected.plugin + ": ";
    return rejected.file + ": " + plugin + rejected.reason;
}

/// Whether it was not asked about before.
bool isNews(const RejectedPlugin& rejected) {
    static std::set<std::string> told;
    return told.insert(describe(rejected)).second;
}

}  // namespace

void appendFolders(std::vector<std::string>& folders, const std::string& list) {
    std::istringstream stream(list);
    for (std::string folder; std::getline(stream, folder, ':');) {
        if (!folder.empty()) {
            folders.push_back(folder);
        }
    }
}

void setFirstPluginFolders(const std::vector<std::string>& folders) {
    firstFolders() = folders;
}

void searchPlugins(std::vector<std::string> folders) {
    namespace fs = std::filesystem;
    folders.insert(folders.end(), firstFolders().begin(), firstFolders().end());
    if (const char* list = std::getenv(kPathVariable)) {
        appendFolders(folders, list);
    }
    std::error_code unknown;
    const fs::path program = fs::read_symlink("/proc/self/exe", unknown);
    if (!unknown) {
        folders.push_back((program.parent_path() / OVSCENE_PLUGIN_FOLDER).lexically_normal());
    }
    PluginManager::setSearchDirectories(folders);
}

std::vector<std::string> unusablePlugins() {
    std::vector<std::string> all;
    for (const RejectedPlugin& rejected : rejectedFiles()) {
        all.push_back(describe(rejected));
    }
    return all;
}

void logUnusablePlugins() {
    const OvLoggingHost::OvLoggerGlue logger("ovscene");
    for (const RejectedPlugin& rejected : rejectedFiles()) {
        if (!isNews(rejected)) {
            continue;
        }
        if (rejected.plugin.empty() && logger.warnEnabled()) {
            logger.warn(describe(rejected).c_str(), __FILE__, __LINE__);
        } else if (!rejected.plugin.empty() && logger.debugEnabled()) {
            logger.debug(describe(rejected).c_str(), __FILE__, __LINE__);
        }
    }
}

}  // namespace ovscene
