// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/GroupAttribute.h>

#include <vector>

namespace SYLVAR {

/// A group of the entries under the names "i0", "i1", ... in their order, with group inherit off.
/// A null entry leaves its number out.
Sylvar3::internal::OvAttribute::GroupAttribute numberedGroup(
    const std::vector<Sylvar3::internal::OvAttribute::Attribute>& entries);

}  // namespace SYLVAR
