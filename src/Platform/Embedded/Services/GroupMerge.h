// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/GroupAttribute.h>

#include <vector>

namespace Sylvar3::internal::OvSylvarServices::Embedded {

/// The groups merged, the nearest first. A name has its place and its value from the nearest group
/// that has it, a null child included; but a child that is a group with group inherit on is merged
/// in turn with the children of that name behind it, up to the first that is no group or has group
/// inherit off; that last one is still merged when it is a group.
///
/// A single group stands as it is. Groups that a merge makes have group inherit off. Any depth; a
/// subtree that is shared is merged once.
OvAttribute::GroupAttribute mergeGroups(std::vector<OvAttribute::GroupAttribute> groups);

}  // namespace Sylvar3::internal::OvSylvarServices::Embedded
