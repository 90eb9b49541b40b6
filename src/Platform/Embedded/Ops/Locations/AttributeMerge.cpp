// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Locations/AttributeMerge.h"

#include "Platform/Embedded/Runtime/AttributeEdit.h"
#include "Platform/Embedded/Runtime/Op.h"

#include <string>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::Embedded::asGroup;
using OvAttribute::Embedded::GroupValue;

namespace {

constexpr int kDeepest = 200;

// NOLINTNEXTLINE(misc-no-recursion): as deep as groups may be nested here, and no deeper.
GroupValue* merge(GroupValue& over, const GroupValue& under, LocationWriter& out, int depth) {
    if (depth > kDeepest) {
        throw OpError("groups are nested more than " + std::to_string(kDeepest) +
                      " levels deep, and cannot be merged");
    }
    AttributeEdit merged(over);
    for (std::int64_t i = 0; i < under.size(); ++i) {
        const std::string_view name = under.shape->name(i);
        if (!merged.has(name)) {
            merged.set(name, under[i]);
            continue;
        }
        GroupValue* const nearer = asGroup(merged.find(name));
        const GroupValue* const farther = asGroup(under[i]);
        if (nearer && farther && nearer != farther) {
            GroupValue* const both = merge(*nearer, *farther, out, depth + 1);
            merged.set(name, both);
        }
    }
    return merged.write(out);
}

}  // namespace

GroupValue* mergeUnder(GroupValue& over, const GroupValue& under, LocationWriter& out) {
    return merge(over, under, out, 0);
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
