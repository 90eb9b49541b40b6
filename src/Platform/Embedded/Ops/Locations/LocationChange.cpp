// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Locations/LocationChange.h"

#include "Platform/Embedded/Ops/Locations/TransformEdit.h"
#include "Platform/Embedded/Runtime/AttributeEdit.h"

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::Embedded::asGroup;
using OvAttribute::Embedded::GroupValue;

void writeWithChildren(const Location& location,
                       const std::vector<std::string_view>& added,
                       LocationWriter& out) {
    if (!location.exists()) {
        return out.setChildren(added);
    }
    std::vector<std::string_view> names;
    names.reserve(location.names().count + added.size());
    for (std::uint32_t i = 0; i < location.names().count; ++i) {
        names.push_back(location.names()[i]);
    }
    for (const std::string_view name : added) {
        if (location.names().find(name, 0) < 0) {
            names.push_back(name);
        }
    }
    out.setAttributes(static_cast<GroupValue*>(out.keep(*location.attributes())));
    out.setChildren(names);
}

void writeWithAttributes(const Location& location,
                         LocationWriter::GroupValue* attributes,
                         LocationWriter& out) {
    if (attributes == location.attributes()) {
        return out.pass(location);
    }
    out.setAttributes(attributes);
    out.setChildrenOf(location);
}

void writeMoved(const Location& location, LocationWriter::Value* matrix, LocationWriter& out) {
    AttributeEdit attributes(location);
    const GroupValue* const own = asGroup(attributes.find(kTransform));
    attributes.set(kTransform, transformWithin(own, {{"matrix", matrix}}, out));
    writeWithAttributes(location, attributes.write(out), out);
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
