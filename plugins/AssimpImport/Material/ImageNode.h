// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Material/ShadingNode.h"

#include <assimp/scene.h>

#include <optional>
#include <string>

namespace AssimpImport {

/// Makes the image nodes of one asset's materials.
class ImageNodes {
public:
    /// `filename`: the asset's, against whose folder relative names are resolved. Both must outlive
    /// this.
    ImageNodes(const AttributeMaker& make, const aiScene& scene, const std::string& filename);

    /// An "image" node for the first texture of that use; nothing when there is none, or when it is
    /// inside the asset's file.
    std::optional<ShadingNode> find(const aiMaterial& material,
                                    aiTextureType use,
                                    const char* nodeName) const;

private:
    const AttributeMaker& make_;
    const aiScene& scene_;
    std::string folder_;
};

}  // namespace AssimpImport
