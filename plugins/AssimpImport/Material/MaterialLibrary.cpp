// SPDX-License-Identifier: Apache-2.0
#include "Material/MaterialLibrary.h"

#include "Material/NetworkMaterial.h"

namespace AssimpImport {
namespace {

std::string nameOf(const aiMaterial& material) {
    aiString name;
    return material.Get(AI_MATKEY_NAME, name) == AI_SUCCESS ? textOf(name) : std::string();
}

}  // namespace

MaterialLibrary::MaterialLibrary(const LocationMaker& locations,
                                 const aiScene& scene,
                                 const std::string& filename,
                                 bool wanted) {
    if (!wanted || !scene.mMaterials) {
        return;
    }
    const ImageNodes images(locations.make(), scene, filename);
    for (unsigned int i = 0; i < scene.mNumMaterials; ++i) {
        const aiMaterial* material = scene.mMaterials[i];
        materials_.push_back(
            material
                ? Entry{nameOf(*material), makeNetworkMaterial(locations.make(), images, *material)}
                : Entry());
    }
}

SuiteHandle MaterialLibrary::material(unsigned int index) const {
    return index < materials_.size() ? materials_[index].network : SuiteHandle();
}

SuiteHandle MaterialLibrary::makeLocation(const LocationMaker& locations) const {
    ChildLocations children;
    for (const Entry& entry : materials_) {
        if (entry.network) {
            GroupEntries attributes = locations.attributes("material", entry.name);
            attributes.add("material", entry.network);
            children.add(entry.name, locations.location(attributes), "material");
        }
    }
    if (children.entries().empty()) {
        return SuiteHandle();
    }
    return locations.location(locations.attributes("group", std::string()), children);
}

}  // namespace AssimpImport
