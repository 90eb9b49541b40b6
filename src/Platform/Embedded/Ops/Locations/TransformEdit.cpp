// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Locations/TransformEdit.h"

#include "Platform/Embedded/Ops/NumberList.h"
#include "Platform/Embedded/Runtime/AttributeEdit.h"

#include <cstdint>
#include <string>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::Embedded::GroupValue;

namespace {

/// One that takes part: its values mean nothing, but they are numbers.
bool isOrigin(const GroupValue& transform, std::int64_t place) {
    constexpr std::string_view kOrigin = "origin";
    const LocationWriter::Value* const value = transform[place];
    return transform.shape->name(place).substr(0, kOrigin.size()) == kOrigin && value &&
           isNumberKind(value->kind);
}

/// How many children stand up to the last "origin", with it.
std::int64_t endOfOrigin(const GroupValue& transform) {
    std::int64_t end = transform.size();
    while (end > 0 && !isOrigin(transform, end - 1)) {
        --end;
    }
    return end;
}

/// A name of the same meaning, which is told by how it begins. The number of children is seldom
/// taken, however often a name was added before.
std::string freeName(std::string_view name, const GroupValue& taken) {
    std::string free(name);
    for (std::int64_t number = taken.size(); taken.shape->find(free) >= 0; ++number) {
        free = std::string(name) + "_" + std::to_string(number);
    }
    return free;
}

void copy(const GroupValue& from, std::int64_t begin, std::int64_t end, AttributeEdit& to) {
    for (std::int64_t i = begin; i < end; ++i) {
        to.set(from.shape->name(i), from[i]);
    }
}

}  // namespace

GroupValue* transformWithin(const GroupValue* inner,
                            const TransformChildren& outer,
                            LocationWriter& out) {
    AttributeEdit edit;
    const std::int64_t origin = inner ? endOfOrigin(*inner) : 0;
    if (inner) {
        copy(*inner, 0, origin, edit);
    }
    for (const auto& [name, value] : outer) {
        edit.set(inner ? freeName(name, *inner) : std::string(name), value);
    }
    if (inner) {
        copy(*inner, origin, inner->size(), edit);
    }
    edit.setGroupInherit(inner && inner->inherits());
    return edit.write(out);
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
