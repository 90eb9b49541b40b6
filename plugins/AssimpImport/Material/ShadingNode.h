// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Attributes/AttributeMaker.h"

#include <string>

namespace AssimpImport {

/// One node of a network material that is to be made.
struct ShadingNode {
    std::string name;
    const char* type = "";
    GroupEntries parameters;
    GroupEntries connections;
};

/// Connects `input` of a node to the output of the node `source`.
void connect(const AttributeMaker& make,
             ShadingNode& node,
             const char* input,
             const std::string& source);

/// The node as a group: "name", "type", and what it has of "parameters" and "connections".
SuiteHandle makeShadingNode(const AttributeMaker& make, const ShadingNode& node);

}  // namespace AssimpImport
