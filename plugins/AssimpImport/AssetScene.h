// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AssetFormat.h"
#include "ImportProgress.h"
#include "ImportRequest.h"

#include <assimp/Importer.hpp>
#include <assimp/scene.h>

namespace AssimpImport {

/// The part of an import that reading the file takes.
constexpr float kReadingShare = 0.7F;

/// What Assimp reads from one file with the reader of its extension alone, and nothing done to it
/// afterwards.
class AssetScene {
public:
    /// Throws `ImportError` with Assimp's reason. `progress` must outlive this.
    AssetScene(const ImportRequest& request, const AssetFormat& format, ImportProgress& progress);

    /// Has a root node; nothing else about it is certain.
    const aiScene& get() const noexcept { return *scene_; }

private:
    void keepReadersOf(const AssetFormat& format);
    void setProperties(const OvAssetImportOptions& options);

    Assimp::Importer importer_;
    const aiScene* scene_ = nullptr;
};

}  // namespace AssimpImport
