// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Services/PluginFile.h"

#include "Platform/Embedded/Services/ForeignCall.h"
#include "Platform/Embedded/Services/SharedObjectFile.h"

#include <dlfcn.h>
#include <utility>

namespace Sylvar3::internal::Embedded {
namespace {

/// Opens the file for good; null and the reason when that fails.
void* open(const std::string& filename, std::string& fault) {
    if (isCutShort(filename)) {
        fault = "is cut short";
        return nullptr;
    }
    void* library = nullptr;
    fault = faultOfCall("loading", [&] {
        library = dlopen(filename.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    });
    if (!library && fault.empty()) {
        const char* text = dlerror();
        fault = text ? text : "cannot be loaded";
    }
    return library;
}

template <class Function>
Function find(void* library, const char* symbol) {
    return reinterpret_cast<Function>(dlsym(library, symbol));
}

}  // namespace

std::string PluginFile::load(const std::string& filename) {
    std::string fault;
    const bool loaded = loaded_.run([&] {
        void* library = open(filename, fault);
        if (library) {
            readPlugins(library, filename);
        }
        return library != nullptr;
    });
    if (!loaded && fault.empty()) {
        fault = "is being loaded";  // By this very thread, further out.
    }
    return loaded ? std::string() : fault;
}

void PluginFile::readPlugins(void* library, const std::string& filename) {
    plugins_.clear();
    rejected_.clear();
    const auto getCount = find<OvGetPluginCountFunction>(library, OV_PLUGIN_COUNT_SYMBOL);
    const auto getPlugin = find<OvGetPluginFunction>(library, OV_PLUGIN_SYMBOL);
    if (!getCount || !getPlugin) {
        return reject(
            filename,
            "",
            std::string("exports no ") + (getCount ? OV_PLUGIN_SYMBOL : OV_PLUGIN_COUNT_SYMBOL));
    }
    std::int32_t count = 0;
    std::string fault = faultOfCall(OV_PLUGIN_COUNT_SYMBOL, [&] { count = getCount(); });
    if (fault.empty() && (count < 1 || count > OV_PLUGIN_MAX_COUNT)) {
        fault = "claims to have " + std::to_string(count) + " plug-ins";
    }
    if (!fault.empty()) {
        return reject(filename, "", fault);
    }
    for (std::int32_t i = 0; i < count; ++i) {
        OvPluginStruct* source = nullptr;
        fault = faultOfCall(OV_PLUGIN_SYMBOL, [&] { source = getPlugin(i); });
        if (fault.empty()) {
            readPlugin(source, i, filename);
        } else {
            reject(filename, "", "plug-in " + std::to_string(i) + ": " + fault);
        }
    }
}

void PluginFile::readPlugin(OvPluginStruct* source,
                            std::int32_t index,
                            const std::string& filename) {
    std::string name;
    std::string fault;
    std::unique_ptr<Plugin> plugin = Plugin::read(source, filename, name, fault);
    if (plugin) {
        plugins_.push_back(std::move(plugin));
    } else {
        reject(filename, name, "plug-in " + std::to_string(index) + " " + fault);
    }
}

void PluginFile::reject(const std::string& filename,
                        const std::string& plugin,
                        const std::string& reason) {
    rejected_.push_back({filename, plugin, reason});
}

}  // namespace Sylvar3::internal::Embedded
