// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Values/DataValue.h"
#include "Platform/Embedded/Attributes/Values/GroupValue.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Sylvar3::internal::OvAttribute::Embedded {

/// Where a walk is: a value and its place in the innermost group, which is null for the top.
struct WalkPlace {
    const Value* value;
    const GroupValue* group;
    std::int64_t index;
    std::size_t depth;  ///< Of the value: 0 at the top.
};

/// Goes through a value and all below it, in order, shared ones each time they occur. Calls
/// `visitor.visit(place)` for each, and for a group `visitor.leave(group, depth)` after its
/// children. Ends early when `visitor.isDone()`. A loop, however deep the groups.
template <class Visitor>
void walkTree(const Value* top, Visitor& visitor) {
    struct Step {
        const GroupValue* group;
        std::int64_t next;
    };
    std::vector<Step> way;
    const auto enter = [&](const WalkPlace& place) {
        visitor.visit(place);
        if (place.value && place.value->kind == OV_ATTRIBUTE_GROUP) {
            way.push_back({static_cast<const GroupValue*>(place.value), 0});
        }
    };
    enter({top, nullptr, 0, 0});
    while (!way.empty() && !visitor.isDone()) {
        Step& step = way.back();
        if (step.next != step.group->size()) {
            const std::int64_t index = step.next++;
            enter({(*step.group)[index], step.group, index, way.size()});
        } else {
            visitor.leave(*step.group, way.size() - 1);
            way.pop_back();
        }
    }
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
