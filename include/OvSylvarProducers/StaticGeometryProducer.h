// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/GeometryProducer.h>

#include <string>

namespace SYLVAR {

/// A producer over a scene that is already there as a whole, in one group. A location is a group
/// with up to two children: "a" holds its attributes, "c" its child locations in their order, each
/// a group of this form under its encoded name (`DelimiterDecode`).
///
/// Null when the path is empty or does not begin with "/", or when the group is null. The parent
/// may be null; it is not tested whether it fits the path. Any thread.
OV_SYLVAR_PRODUCERS_API GeometryProducerPtr
CreateStaticGeometryProducer(const std::string& path,
                             const GroupAttribute& group,
                             GeometryProducerPtr parent);

}  // namespace SYLVAR
