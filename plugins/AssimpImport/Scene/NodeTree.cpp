// SPDX-License-Identifier: Apache-2.0
#include "Scene/NodeTree.h"

#include "Scene/LocationBudget.h"

namespace AssimpImport {

std::vector<TreeNode> listNodes(const aiNode& root, std::int64_t maxNodes) {
    LocationBudget budget(maxNodes);
    budget.spend(1);
    std::vector<TreeNode> nodes = {{&root, 0, 0}};
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const aiNode& node = *nodes[i].node;
        const unsigned int count = node.mChildren ? node.mNumChildren : 0;
        budget.spend(count);
        nodes[i].firstChild = nodes.size();
        for (unsigned int child = 0; child < count; ++child) {
            if (node.mChildren[child]) {
                nodes.push_back({node.mChildren[child], 0, 0});
            }
        }
        nodes[i].childCount = nodes.size() - nodes[i].firstChild;
    }
    return nodes;
}

}  // namespace AssimpImport
