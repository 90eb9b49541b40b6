// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/GroupAttribute.h>

#include <cstdint>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// That many network materials: each one `standard_surface` node on the terminal "surface", with a
/// base colour and a roughness that differ from material to material. For equal numbers equal ones.
std::vector<OvAttribute::GroupAttribute> generatedMaterials(std::int32_t count, std::uint64_t seed);

}  // namespace Sylvar3::internal::OvSylvar::Embedded
