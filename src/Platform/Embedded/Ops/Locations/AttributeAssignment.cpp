// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Locations/AttributeAssignment.h"

#include "Platform/Embedded/Ops/Locations/AttributeMerge.h"

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::Embedded::asGroup;
using OvAttribute::Embedded::GroupValue;

AssignmentMode assignmentModeOf(const Arguments& arguments) {
    return static_cast<AssignmentMode>(
        arguments.getChoice("mode", {"replace", "merge", "ifMissing"}));
}

ArgumentSchema assignmentModeSchema() {
    return {"mode",
            "string",
            "replace",
            "`replace`: in place of what is there; `merge`: groups are merged with those that are "
            "there; `ifMissing`: only where there is none."};
}

void assign(AttributeEdit& attributes,
            std::string_view name,
            LocationWriter::Value* value,
            AssignmentMode mode,
            LocationWriter& out) {
    LocationWriter::Value* const present = attributes.find(name);
    if (mode == AssignmentMode::IfMissing && present) {
        return;
    }
    GroupValue* const over = asGroup(value);
    GroupValue* const under = asGroup(present);
    const bool isMerged = mode == AssignmentMode::Merge && over && under;
    attributes.set(name, isMerged ? mergeGroups({over, under}, out) : value);
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
