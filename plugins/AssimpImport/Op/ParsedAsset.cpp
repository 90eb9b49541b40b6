// SPDX-License-Identifier: Apache-2.0
#include "Op/ParsedAsset.h"

#include "ImportError.h"
#include "Scene/SceneImport.h"

#include <map>
#include <new>
#include <sstream>
#include <utility>

namespace AssimpImport {
namespace {

/// The assets that somebody holds, by file and options.
struct AssetTable {
    std::mutex mutex;
    std::map<std::string, std::weak_ptr<ParsedAsset>> assets;
};

/// Never destroyed: ops may end after the static objects.
AssetTable& table() {
    static AssetTable& assets = *new AssetTable;
    return assets;
}

std::string keyOf(const OvAssetImportOptions& options, const std::string& identity) {
    std::ostringstream key;
    key << std::hexfloat << int{options.upAxis} << ' ' << options.unitScale << ' '
        << int{options.lights} << int{options.cameras} << int{options.materials} << ' '
        << options.maxFileBytes << ' ' << options.maxLocations << ' ' << identity;
    return key.str();
}

}  // namespace

std::shared_ptr<ParsedAsset> ParsedAsset::find(const ImportRequest& request,
                                               IdentityOf identityOf) {
    auto asset = std::make_shared<ParsedAsset>(request, identityOf, identityOf(request.filename));
    AssetTable& all = table();
    const std::lock_guard<std::mutex> lock(all.mutex);
    std::weak_ptr<ParsedAsset>& known = all.assets[keyOf(request.options, asset->identity_)];
    if (std::shared_ptr<ParsedAsset> present = known.lock()) {
        return present;
    }
    known = asset;
    return asset;
}

ParsedAsset::ParsedAsset(ImportRequest request, IdentityOf identityOf, std::string identity)
    : request_(std::move(request)), identityOf_(identityOf), identity_(std::move(identity)) {}

ParsedAsset::~ParsedAsset() {
    AssetTable& all = table();
    const std::lock_guard<std::mutex> lock(all.mutex);
    const auto own = all.assets.find(keyOf(request_.options, identity_));
    if (own != all.assets.end() && own->second.expired()) {
        all.assets.erase(own);
    }
}

OvAttributeStruct* ParsedAsset::scene() {
    if (!isParsed_.load(std::memory_order_acquire)) {
        const std::lock_guard<std::mutex> lock(parsing_);
        if (!isParsed_.load(std::memory_order_relaxed)) {
            parse();
            isParsed_.store(true, std::memory_order_release);
        }
    }
    if (!scene_) {
        throw ImportError(fault_);
    }
    return scene_.get();
}

void ParsedAsset::parse() {
    try {
        SuiteHandle scene = importScene(request_);
        if (hasChanged()) {
            throw ImportError("it changed while it was read");
        }
        scene_ = std::move(scene);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        fault_ = request_.filename + ": " + error.what();
    }
}

}  // namespace AssimpImport
