// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Generated/GeneratedMaterials.h"

#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupBuilder.h>

#include "Platform/Embedded/Ops/Generated/RandomNumber.h"

#include <cstddef>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::FloatAttribute;
using OvAttribute::GroupAttribute;
using OvAttribute::GroupBuilder;
using OvAttribute::StringAttribute;

namespace {

GroupAttribute materialOf(std::uint64_t random) {
    std::vector<float> color;
    for (int channel = 0; channel < 3; ++channel) {
        random = mixed(random);
        color.push_back(static_cast<float>(unit(random)));
    }
    return GroupBuilder()
        .set("style", StringAttribute("network"))
        .set("nodes.surface.name", StringAttribute("surface"))
        .set("nodes.surface.type", StringAttribute("standard_surface"))
        .set("nodes.surface.parameters.base_color", FloatAttribute(color, 3))
        .set("nodes.surface.parameters.specular_roughness",
             FloatAttribute(static_cast<float>(unit(mixed(random)))))
        .set("terminals.surface", StringAttribute("surface"))
        .build();
}

}  // namespace

std::vector<GroupAttribute> generatedMaterials(std::int32_t count, std::uint64_t seed) {
    std::vector<GroupAttribute> materials;
    materials.reserve(static_cast<std::size_t>(count));
    for (std::int32_t i = 0; i < count; ++i) {
        materials.push_back(materialOf(mixed(seed + static_cast<std::uint64_t>(i))));
    }
    return materials;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
