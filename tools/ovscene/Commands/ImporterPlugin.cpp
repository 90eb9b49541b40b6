// SPDX-License-Identifier: Apache-2.0
#include "Commands/ImporterPlugin.h"

#include "ExitStatus.h"
#include "Print/NumberText.h"

#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <sstream>
#include <system_error>
#include <vector>

namespace ovscene {
namespace {

namespace fs = std::filesystem;

constexpr char kPluginFile[] = "AssimpImport.so";
constexpr char kPathVariable[] = "OVSCENE_PLUGIN_PATH";

void appendFolders(std::vector<fs::path>& folders, const std::string& list) {
    std::istringstream stream(list);
    for (std::string folder; std::getline(stream, folder, ':');) {
        if (!folder.empty()) {
            folders.emplace_back(folder);
        }
    }
}

std::vector<fs::path> searchPath(const std::string& pluginPath) {
    std::vector<fs::path> folders;
    appendFolders(folders, pluginPath);
    if (const char* list = std::getenv(kPathVariable)) {
        appendFolders(folders, list);
    }
    std::error_code unknown;
    const fs::path program = fs::read_symlink("/proc/self/exe", unknown);
    if (!unknown) {
        folders.push_back((program.parent_path() / OVSCENE_PLUGIN_FOLDER).lexically_normal());
    }
    return folders;
}

[[noreturn]] void throwUnusable(const std::string& reason) {
    throw CommandError(ExitStatus::PluginUnusable, reason);
}

fs::path findPlugin(const std::vector<fs::path>& folders) {
    std::string searched;
    for (const fs::path& folder : folders) {
        std::error_code unknown;
        if (fs::exists(folder / kPluginFile, unknown)) {
            return fs::absolute(folder / kPluginFile);
        }
        searched += (searched.empty() ? "" : ", ") + folder.string();
    }
    throwUnusable(std::string("no importer plug-in ") + kPluginFile + "; searched " +
                  (searched.empty() ? "nowhere" : searched));
}

OvGetAssetImporterFunction loadGetter(const fs::path& file) {
    void* const library = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library) {
        throwUnusable(std::string("plug-in cannot be loaded: ") + ::dlerror());
    }
    void* const symbol = ::dlsym(library, OV_ASSET_IMPORTER_SYMBOL);
    if (!symbol) {
        throwUnusable(file.string() + ": no asset importer, it exports no " +
                      OV_ASSET_IMPORTER_SYMBOL);
    }
    return reinterpret_cast<OvGetAssetImporterFunction>(symbol);
}

}  // namespace

const OvAssetImporter& loadAssetImporter(const std::string& pluginPath) {
    const fs::path file = findPlugin(searchPath(pluginPath));
    const OvAssetImporter* const importer = loadGetter(file)();
    if (!importer) {
        throwUnusable(file.string() + ": gives no asset importer");
    }
    if (importer->version != OV_ASSET_IMPORTER_VERSION) {
        throwUnusable(file.string() + ": asset importer of version " +
                      numberText(importer->version) + ", not " +
                      numberText(std::int32_t{OV_ASSET_IMPORTER_VERSION}));
    }
    return *importer;
}

}  // namespace ovscene
