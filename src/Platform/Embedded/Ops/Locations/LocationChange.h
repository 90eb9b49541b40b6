// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/Location.h"
#include "Platform/Embedded/Runtime/LocationWriter.h"

#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// Writes a location with more children behind those that it has; names that it has already are no
/// more. An absent one becomes a location with these children alone. May throw `std::bad_alloc`.
void writeWithChildren(const Location& location,
                       const std::vector<std::string_view>& added,
                       LocationWriter& out);

/// Writes a location, which must be there, with these attributes, made here or kept; hands it on
/// when they are its own. May throw `std::bad_alloc`.
void writeWithAttributes(const Location& location,
                         LocationWriter::GroupValue* attributes,
                         LocationWriter& out);

/// Writes a location, which must be there, with a matrix that acts after its own transform. All
/// else is shared with it. May throw `std::bad_alloc`.
void writeMoved(const Location& location, LocationWriter::Value* matrix, LocationWriter& out);

}  // namespace Sylvar3::internal::OvSylvar::Embedded
