// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AssetFormat.h"
#include "Scene/LocationMaker.h"
#include "Scene/NodeTree.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace AssimpImport {

/// A camera's or a light's location, and its name.
struct Lens {
    std::string name;
    SuiteHandle location;
    const char* type = "";
};

/// The cameras and lights of a scene, each at the node that bears its name: the first such node for
/// the first one of that name, the next for the next. What finds no node is at the root.
class NodeLenses {
public:
    NodeLenses(const std::vector<TreeNode>& nodes, const AssetFormat& format);

    void add(Lens lens);

    /// What is at the node of that place in the tree.
    const std::vector<Lens>& at(std::size_t node) const;

    std::size_t size() const noexcept { return size_; }

private:
    struct Bearers {
        std::vector<std::size_t> nodes;
        std::unordered_map<std::string, std::size_t> next;  // by type
    };

    std::size_t nodeFor(const Lens& lens);

    bool rooted_;
    std::size_t size_ = 0;
    std::unordered_map<std::string, Bearers> bearers_;
    std::unordered_map<std::size_t, std::vector<Lens>> lenses_;
    std::vector<Lens> none_;
};

/// The cameras and lights that are wanted.
NodeLenses readLenses(const LocationMaker& locations,
                      const aiScene& scene,
                      const std::vector<TreeNode>& nodes,
                      const AssetFormat& format,
                      bool cameras,
                      bool lights);

}  // namespace AssimpImport
