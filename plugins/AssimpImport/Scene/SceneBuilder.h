// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AssetFormat.h"
#include "ImportProgress.h"
#include "ImportRequest.h"
#include "Material/MaterialLibrary.h"
#include "Scene/LocationBudget.h"
#include "Scene/LocationMaker.h"
#include "Scene/NodeLenses.h"
#include "Scene/NodeTree.h"

#include <assimp/scene.h>

#include <vector>

namespace AssimpImport {

/// Makes the locations of one scene. Every node is a location of the type "group"; the meshes,
/// cameras and lights at it are its first children, and the nodes below it come behind. A mesh that
/// several nodes refer to is one group, made once.
class SceneBuilder {
public:
    /// All must outlive this. Throws `ImportError` beyond the limit of locations.
    SceneBuilder(const ImportRequest& request,
                 const AssetFormat& format,
                 const aiScene& scene,
                 ImportProgress& progress);

    /// The group of /root. Throws `ImportError` when the scene holds nothing to see or see by.
    SuiteHandle build();

private:
    void makeMeshes();
    void checkContent() const;
    SuiteHandle makeNodes();
    SuiteHandle makeNode(std::size_t place, std::vector<SuiteHandle>& made);
    SuiteHandle makeRoot(SuiteHandle rootNode);
    std::string nameOf(const aiNode& node) const;
    void addMeshes(const aiNode& node, ChildLocations& children);

    const ImportRequest& request_;
    const AssetFormat& format_;
    const aiScene& scene_;
    ImportProgress& progress_;
    LocationBudget budget_;
    LocationMaker locations_;
    std::vector<TreeNode> nodes_;
    MaterialLibrary materials_;
    NodeLenses lenses_;
    std::vector<SuiteHandle> meshes_;
    bool hasPolygons_ = false;
};

}  // namespace AssimpImport
