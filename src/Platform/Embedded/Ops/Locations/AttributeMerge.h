// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/LocationWriter.h"

namespace Sylvar3::internal::OvSylvar::Embedded {

/// The group `over` with what it does not have taken from `under`; where both have a group of one
/// name, these are merged in turn. Group inherit is that of `over`. Values that need no merge are
/// kept, not copied. Throws `OpError` for groups that are nested too deeply.
LocationWriter::GroupValue* mergeUnder(LocationWriter::GroupValue& over,
                                       const LocationWriter::GroupValue& under,
                                       LocationWriter& out);

}  // namespace Sylvar3::internal::OvSylvar::Embedded
