// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/GroupAttribute.h>

#include <boost/container/small_vector.hpp>

namespace SYLVAR {

/// One attribute, or null, for each location of a chain.
using ChainAttributes =
    boost::container::small_vector<Sylvar3::internal::OvAttribute::Attribute, 24>;

/// A group of the entries under the names "i0", "i1", ... in their order, with group inherit off.
/// A null entry leaves its number out.
Sylvar3::internal::OvAttribute::GroupAttribute numberedGroup(const ChainAttributes& entries);

}  // namespace SYLVAR
