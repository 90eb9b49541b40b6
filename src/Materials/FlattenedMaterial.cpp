// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/FlattenedMaterial.h>

#include "Materials/ClassicMaterial.h"
#include "Materials/FlattenedMaterialCache.h"
#include "Materials/NetworkMerge.h"

#include <algorithm>
#include <utility>

namespace SYLVAR {
namespace {

using Sylvar3::internal::OvAttribute::castAttribute;

/// Those of the location and of those above it, the nearest first.
std::vector<GroupAttribute> materialsOfChain(GeometryProducerPtr location) {
    std::vector<GroupAttribute> materials;
    for (; location; location = location->parent) {
        const auto material = castAttribute<GroupAttribute>(location->getAttribute("material"));
        if (material) {
            materials.push_back(MinimizeResolvedMaterialAttr(material));
        }
    }
    return materials;
}

}  // namespace

GroupAttribute GetFlattenedMaterialAttr(const std::vector<GroupAttribute>& materials,
                                        const std::vector<std::string>& terminals) {
    if (materials.empty()) {
        return {};
    }
    if (materials.size() == 1) {
        return materials.front();
    }
    if (std::none_of(materials.begin(), materials.end(), isNetworkMaterial)) {
        return mergeClassicMaterials(materials);
    }
    NetworkMerge merge(terminals);
    for (const GroupAttribute& material : materials) {
        merge.add(isNetworkMaterial(material) ? material
                                              : networkOfClassicMaterial(material, terminals));
    }
    return merge.result();
}

GroupAttribute GetFlattenedMaterialAttr(GeometryProducerPtr producer,
                                        const std::vector<std::string>& terminals) {
    std::string path = producer->getFullName();
    FlattenedMaterialCache& cache = flattenedMaterialCache();
    if (const std::optional<GroupAttribute> remembered = cache.find(path)) {
        return *remembered;
    }
    GroupAttribute material =
        GetFlattenedMaterialAttr(materialsOfChain(std::move(producer)), terminals);
    cache.remember(std::move(path), material);
    return material;
}

void EmptyFlattenedMaterialCache() {
    flattenedMaterialCache().empty();
}

}  // namespace SYLVAR
