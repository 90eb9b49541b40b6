// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Scene/LocationMaker.h"

#include <assimp/scene.h>

#include <vector>

namespace AssimpImport {

/// The materials of one asset.
class MaterialLibrary {
public:
    /// Without materials when they are not wanted.
    MaterialLibrary(const LocationMaker& locations,
                    const aiScene& scene,
                    const std::string& filename,
                    bool wanted);

    /// The network material of that index; null when there is none.
    SuiteHandle material(unsigned int index) const;

    std::size_t size() const noexcept { return materials_.size(); }

    /// A location that holds a location of the type "material" for each; null without materials.
    SuiteHandle makeLocation(const LocationMaker& locations) const;

private:
    struct Entry {
        std::string name;
        SuiteHandle network;
    };

    std::vector<Entry> materials_;
};

}  // namespace AssimpImport
