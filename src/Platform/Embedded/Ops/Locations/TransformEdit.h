// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/LocationWriter.h"

#include <boost/container/small_vector.hpp>

#include <string_view>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// The name of the attribute that holds a location's transform.
constexpr const char* kTransform = "xform";

/// Children of a transform, by name. Borrowed.
using TransformChildren =
    boost::container::small_vector<std::pair<std::string_view, LocationWriter::Value*>, 4>;

/// A transform in which a point is moved by `inner` first, which can be null, and then by the
/// children of `outer`. These stand in front of those of `inner`, but behind an "origin", which
/// forgets what stands in front of it; they have new names where theirs are taken. Values are kept,
/// not copied.
LocationWriter::GroupValue* transformWithin(const LocationWriter::GroupValue* inner,
                                            const TransformChildren& outer,
                                            LocationWriter& out);

}  // namespace Sylvar3::internal::OvSylvar::Embedded
