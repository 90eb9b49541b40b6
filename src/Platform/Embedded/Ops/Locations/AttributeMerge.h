// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/LocationWriter.h"

#include <boost/container/small_vector.hpp>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// Groups, the nearest first.
using GroupList = boost::container::small_vector<LocationWriter::GroupValue*, 8>;

/// The first group with what it does not have taken from the nearest other that has it; where the
/// nearest that has a name has a group there, it is merged in turn with the groups that farther
/// ones have of that name. Group inherit is that of the first. Each merged group is written once,
/// and one that needs no merge is kept, not copied. There is at least one group. Throws `OpError`
/// for groups that are nested too deeply.
LocationWriter::GroupValue* mergeGroups(const GroupList& groups, LocationWriter& out);

}  // namespace Sylvar3::internal::OvSylvar::Embedded
