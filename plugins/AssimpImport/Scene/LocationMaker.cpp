// SPDX-License-Identifier: Apache-2.0
#include "Scene/LocationMaker.h"

#include <algorithm>

namespace AssimpImport {

std::string textOf(const aiString& string) {
    const std::size_t length = std::min<std::size_t>(string.length, sizeof string.data - 1);
    return std::string(string.data, length);
}

void ChildLocations::add(const std::string& original, SuiteHandle location, const char* otherwise) {
    if (location) {
        entries_.add(names_.take(safeName(original, otherwise)), std::move(location));
    }
}

LocationMaker::LocationMaker(const AttributeMaker& make, const std::string& filename)
    : make_(make), file_(make.string(filename)) {}

GroupEntries LocationMaker::attributes(const char* type, const std::string& originalName) const {
    GroupEntries source;
    source.add("file", file_);
    source.add("name", make_.string(originalName));
    GroupEntries attributes;
    attributes.add("type", make_.string(type));
    attributes.add("source", make_.group(source));
    return attributes;
}

void LocationMaker::addXform(GroupEntries& attributes, const Matrix& matrix) const {
    if (matrix != kIdentity) {
        GroupEntries xform;
        xform.add("matrix", make_.doubles({matrix.begin(), matrix.end()}, 16));
        attributes.add("xform", make_.group(xform));
    }
}

SuiteHandle LocationMaker::location(const GroupEntries& attributes,
                                    const ChildLocations& children) const {
    GroupEntries location;
    location.add("a", make_.group(attributes));
    if (!children.entries().empty()) {
        location.add("c", make_.group(children.entries()));
    }
    return make_.group(location);
}

SuiteHandle LocationMaker::location(const GroupEntries& attributes) const {
    return location(attributes, ChildLocations());
}

}  // namespace AssimpImport
