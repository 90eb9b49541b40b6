// SPDX-License-Identifier: Apache-2.0
#include "Scene/NodeLenses.h"

#include "Scene/CameraLocation.h"
#include "Scene/LightLocation.h"

#include <algorithm>

namespace AssimpImport {

NodeLenses::NodeLenses(const std::vector<TreeNode>& nodes, const AssetFormat& format)
    : rooted_(format.rootedLenses) {
    for (std::size_t i = 0; i < nodes.size() && !rooted_; ++i) {
        bearers_[textOf(nodes[i].node->mName)].nodes.push_back(i);
    }
}

void NodeLenses::add(Lens lens) {
    const std::size_t node = nodeFor(lens);
    lenses_[node].push_back(std::move(lens));
    ++size_;
}

std::size_t NodeLenses::nodeFor(const Lens& lens) {
    const auto found = bearers_.find(lens.name);
    if (found == bearers_.end()) {
        return 0;
    }
    Bearers& bearers = found->second;
    const std::size_t last = bearers.nodes.size() - 1;
    return bearers.nodes[std::min(bearers.next[lens.type]++, last)];
}

const std::vector<Lens>& NodeLenses::at(std::size_t node) const {
    const auto found = lenses_.find(node);
    return found == lenses_.end() ? none_ : found->second;
}

NodeLenses readLenses(const LocationMaker& locations,
                      const aiScene& scene,
                      const std::vector<TreeNode>& nodes,
                      const AssetFormat& format,
                      bool cameras,
                      bool lights) {
    NodeLenses lenses(nodes, format);
    for (unsigned int i = 0; cameras && scene.mCameras && i < scene.mNumCameras; ++i) {
        if (const aiCamera* camera = scene.mCameras[i]) {
            lenses.add(
                {textOf(camera->mName), makeCameraLocation(locations, *camera, format), "camera"});
        }
    }
    for (unsigned int i = 0; lights && scene.mLights && i < scene.mNumLights; ++i) {
        if (const aiLight* light = scene.mLights[i]) {
            lenses.add(
                {textOf(light->mName), makeLightLocation(locations, *light, format), "light"});
        }
    }
    return lenses;
}

}  // namespace AssimpImport
