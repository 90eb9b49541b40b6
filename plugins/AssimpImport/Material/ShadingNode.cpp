// SPDX-License-Identifier: Apache-2.0
#include "Material/ShadingNode.h"

namespace AssimpImport {

void connect(const AttributeMaker& make,
             ShadingNode& node,
             const char* input,
             const std::string& source) {
    node.connections.add(input, make.string("out@" + source));
}

SuiteHandle makeShadingNode(const AttributeMaker& make, const ShadingNode& node) {
    GroupEntries entries;
    entries.add("name", make.string(node.name));
    entries.add("type", make.string(node.type));
    if (!node.parameters.empty()) {
        entries.add("parameters", make.group(node.parameters));
    }
    if (!node.connections.empty()) {
        entries.add("connections", make.group(node.connections));
    }
    return make.group(entries);
}

}  // namespace AssimpImport
