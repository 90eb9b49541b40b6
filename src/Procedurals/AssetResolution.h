// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/GroupAttribute.h>

namespace SYLVAR {

/// The group with its strings, those in groups within it too, resolved by the default asset plug-in
/// (flag false): of each attribute the sample nearest time 0 alone, and what cannot be resolved as
/// it was. Names that begin with "__" are left out. Group inherit is on. Null gives null.
///
/// A group that stands in several places is resolved once. Any thread.
Sylvar3::internal::OvAttribute::GroupAttribute ResolveAssetsInGroup(
    const Sylvar3::internal::OvAttribute::GroupAttribute& group,
    int frame);

}  // namespace SYLVAR
