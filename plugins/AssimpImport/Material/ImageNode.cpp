// SPDX-License-Identifier: Apache-2.0
#include "Material/ImageNode.h"

#include "Scene/LocationMaker.h"

#include <algorithm>

namespace AssimpImport {
namespace {

constexpr char kFileScheme[] = "file://";

const char* addressMode(aiTextureMapMode mode) {
    switch (mode) {
        case aiTextureMapMode_Clamp:
            return "clamp";
        case aiTextureMapMode_Mirror:
            return "mirror";
        case aiTextureMapMode_Decal:
            return "constant";
        default:
            return "periodic";
    }
}

bool isAbsolute(const std::string& path) {
    const bool drive = path.size() > 2 && path[1] == ':' && path[2] == '/';
    return drive || path[0] == '/';
}

std::string resolvedPath(std::string path, const std::string& folder) {
    std::replace(path.begin(), path.end(), '\\', '/');
    if (path.rfind(kFileScheme, 0) == 0) {
        path.erase(0, sizeof kFileScheme - 1);
    }
    return path.empty() || isAbsolute(path) ? path : folder + path;
}

}  // namespace

ImageNodes::ImageNodes(const AttributeMaker& make,
                       const aiScene& scene,
                       const std::string& filename)
    : make_(make), scene_(scene), folder_(filename.substr(0, filename.rfind('/') + 1)) {}

std::optional<ShadingNode> ImageNodes::find(const aiMaterial& material,
                                            aiTextureType use,
                                            const char* nodeName) const {
    aiString path;
    aiTextureMapMode modes[3] = {};
    const aiReturn found =
        material.GetTexture(use, 0, &path, nullptr, nullptr, nullptr, nullptr, modes);
    if (found != AI_SUCCESS || path.length == 0 || scene_.GetEmbeddedTexture(path.C_Str())) {
        return std::nullopt;
    }
    ShadingNode node{nodeName, "image", {}, {}};
    node.parameters.add("file", make_.string(resolvedPath(textOf(path), folder_)));
    node.parameters.add("uaddressmode", make_.string(addressMode(modes[0])));
    node.parameters.add("vaddressmode", make_.string(addressMode(modes[1])));
    return node;
}

}  // namespace AssimpImport
