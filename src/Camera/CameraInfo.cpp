// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/CameraInfo.h>

#include "Camera/CameraInfoReader.h"
#include "Platform/Support/OnceBuilt.h"

#include <map>

namespace SYLVAR {
namespace {

/// An empty pointer is a failure that is remembered.
using CameraInfoCache = std::map<std::string, std::shared_ptr<CameraInfo>>;

CameraInfoCache& cameraInfoCache() {
    static Sylvar3::internal::Support::OnceBuilt<CameraInfoCache> built;
    return built.get();
}

}  // namespace

std::shared_ptr<CameraInfo> GetCameraInfo(GeometryProducerPtr root, const std::string& cameraPath) {
    if (!root) {
        return {};
    }
    CameraInfoCache& cache = cameraInfoCache();
    const std::string key = cameraPath + root->getHash();
    if (const auto [found, isNew] = cache.try_emplace(key); !isNew) {
        return found->second;
    }
    std::shared_ptr<CameraInfo> info = readCameraInfo(*root, cameraPath);
    if (info) {
        cache[key] = info;
    }
    return info;
}

void ClearCameraInfoCache() {
    cameraInfoCache().clear();
}

}  // namespace SYLVAR
