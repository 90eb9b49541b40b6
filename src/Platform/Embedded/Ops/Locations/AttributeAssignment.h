// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Ops/Arguments.h"
#include "Platform/Embedded/Runtime/AttributeEdit.h"
#include "Platform/Embedded/Runtime/LocationWriter.h"

#include <string_view>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// What becomes of the attribute that is there when an op sets one.
enum class AssignmentMode {
    Replace,
    Merge,     ///< Groups are merged with those that are there; all else is replaced.
    IfMissing  ///< The attribute that is there stays.
};

/// The argument "mode". Throws `OpError`.
AssignmentMode assignmentModeOf(const Arguments& arguments);

/// The schema of that argument.
ArgumentSchema assignmentModeSchema();

/// Sets an attribute. The value is kept, not copied. Throws `OpError` for groups to be merged that
/// are nested too deeply.
void assign(AttributeEdit& attributes,
            std::string_view name,
            LocationWriter::Value* value,
            AssignmentMode mode,
            LocationWriter& out);

}  // namespace Sylvar3::internal::OvSylvar::Embedded
