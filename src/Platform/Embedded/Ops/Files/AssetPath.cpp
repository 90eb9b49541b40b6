// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Files/AssetPath.h"

#include <SylvarPlatform/AssetPlugin.h>

#include "Platform/Embedded/Runtime/RuntimeLog.h"

#include <exception>

namespace Sylvar3::internal::OvSylvar::Embedded {

std::string assetPath(const std::string& name) {
    try {
        return OvAssetHost::v1::OvAssetPluginManager::getDefaultAssetPlugin()->resolveAsset(
            name, 0, false);
    } catch (const std::exception& error) {
        OV_LOG(runtimeLogger(),
               warn,
               "The asset plug-in cannot resolve \"" << name << "\": " << error.what());
        return name;
    }
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
