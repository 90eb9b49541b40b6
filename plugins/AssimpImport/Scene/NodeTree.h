// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <assimp/scene.h>

#include <cstdint>
#include <vector>

namespace AssimpImport {

/// A node and its children, which stand one after the other in the tree.
struct TreeNode {
    const aiNode* node = nullptr;
    std::size_t firstChild = 0;
    std::size_t childCount = 0;
};

/// All nodes of a scene, level by level from the root: a node's children stand behind it. Throws
/// `ImportError` beyond `maxNodes`; 0: no limit.
std::vector<TreeNode> listNodes(const aiNode& root, std::int64_t maxNodes);

}  // namespace AssimpImport
