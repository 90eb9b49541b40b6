// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/Export.h>
#include <SylvarPlatform/GroupAttribute.h>

namespace SYLVAR {

/// Rewrites texture assignments as arbitrary attributes, each with a scope and a value. A child is
/// a string, one map for all; or a group with the strings "maps" and, for each face, the integers
/// "indicies". A child N becomes the group N:
///
///     value, scope "primitive"                    one map, or no indices
///     scope "face", indexedValue, index           two maps or more, with indices
///
/// Values are shared. Other children are passed over; when none is left, the group is empty and has
/// group inherit on. Null gives null. Pure; any thread.
OV_SYLVAR_PRODUCERS_API Sylvar3::internal::OvAttribute::GroupAttribute
ConvertTexturesToArbitraryAttr(const Sylvar3::internal::OvAttribute::GroupAttribute& textures);

}  // namespace SYLVAR
