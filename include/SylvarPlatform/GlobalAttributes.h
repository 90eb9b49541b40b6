// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Attribute.h>
#include <SylvarPlatform/Export.h>

#include <cstdint>
#include <string>

namespace Sylvar3::internal::OvSylvarServices {

/// A chain of locations whose attributes are asked for by depth: 0 is the starting location, n the
/// one n levels above it.
class SYLVAR_PLATFORM_API BaseGlobalAttributeProviderLegacy {
public:
    BaseGlobalAttributeProviderLegacy() = default;
    virtual ~BaseGlobalAttributeProviderLegacy();
    BaseGlobalAttributeProviderLegacy(const BaseGlobalAttributeProviderLegacy&) = delete;
    BaseGlobalAttributeProviderLegacy& operator=(const BaseGlobalAttributeProviderLegacy&) = delete;

    /// Fills `output` with the attribute of that name at `depth`, null when that location has none,
    /// and returns 0. Returns 2 and leaves `output` alone when there is no location at that depth.
    /// `locationPath` is the path of the starting location.
    virtual std::int32_t getGlobalAttrAtDepth(const std::string& name,
                                              const std::string& locationPath,
                                              std::int32_t depth,
                                              OvAttribute::Attribute* output) = 0;
};

namespace OvSylvarCookInterfaceUtils {

/// The value of an attribute at a location, those above it considered. The nearest level that has
/// the attribute wins. When that is a group with group inherit on, the groups of the levels above
/// are merged under it, child by child and group by group, until one with group inherit off has
/// been merged, or a level has a value that is no group. Null when no level has it.
///
/// In a merge the nearer child wins, a null child too, which hides those behind it. Where the
/// nearer child is a group with group inherit on, those of its name behind it are merged under it
/// by the same rule. The nearer group's children stand first, in their order, then the new ones.
/// Groups that a merge makes have group inherit off. Groups may be of any depth.
///
/// Asks the provider for depth 0, 1, 2, ... in turn, and no depth twice. The last argument is
/// reserved: pass null. Any thread.
SYLVAR_PLATFORM_API OvAttribute::Attribute getGlobalAttrGeneric(
    BaseGlobalAttributeProviderLegacy* provider,
    const std::string& name,
    const std::string& locationPath,
    void* reserved);

}  // namespace OvSylvarCookInterfaceUtils

}  // namespace Sylvar3::internal::OvSylvarServices
