// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/AssetPlugin.h>
#include <SylvarPlatform/Configuration.h>

#include "Platform/Embedded/Services/FrameNumber.h"
#include "Platform/Support/OnceBuilt.h"

#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>

#include <algorithm>
#include <atomic>
#include <memory>
#include <string_view>

namespace Sylvar3::OvAssetHost::v1 {

namespace {

namespace fs = boost::filesystem;

constexpr const char* kSearchPathKey = "SYLVAR_ASSET_PATH";

/// The relative identifier in the first directory that has it; itself when none has.
std::string found(const std::string& assetId, std::string_view searchPath) {
    while (!searchPath.empty()) {
        const std::string_view directory = searchPath.substr(0, searchPath.find(':'));
        searchPath.remove_prefix(std::min(directory.size() + 1, searchPath.size()));
        const fs::path candidate = fs::path(directory.begin(), directory.end()) / assetId;
        boost::system::error_code ignored;
        if (!directory.empty() && fs::exists(candidate, ignored)) {
            return candidate.string();
        }
    }
    return assetId;
}

class SearchPathPlugin : public AssetPlugin {
public:
    std::string resolveAsset(const std::string& assetId, int frame, bool /*flag*/) override {
        const std::string filled = internal::Embedded::withFrameNumber(assetId, frame);
        const bool isSearched =
            !filled.empty() && filled[0] != '/' && filled.find('\0') == std::string::npos;
        return isSearched ? found(filled, OvConfiguration::v1::Config()->get(kSearchPathKey))
                          : filled;
    }
};

AssetPlugin* ours() {
    static internal::Support::OnceBuilt<std::unique_ptr<SearchPathPlugin>> plugin;
    return plugin.get([] { return std::make_unique<SearchPathPlugin>(); }).get();
}

std::atomic<AssetPlugin*> theOther{nullptr};

}  // namespace

AssetPlugin::~AssetPlugin() = default;

AssetPlugin* OvAssetPluginManager::getDefaultAssetPlugin() {
    AssetPlugin* const other = theOther.load(std::memory_order_acquire);
    return other ? other : ours();
}

void OvAssetPluginManager::setDefaultAssetPlugin(AssetPlugin* plugin) {
    theOther.store(plugin, std::memory_order_release);
}

}  // namespace Sylvar3::OvAssetHost::v1
