// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Attributes/AttributeMaker.h"
#include "Scene/LocationNames.h"
#include "Scene/Matrix.h"

#include <assimp/types.h>

#include <cstdint>
#include <string>

namespace AssimpImport {

/// The text of an Assimp string, never beyond its room.
std::string textOf(const aiString& string);

/// The children of a location that is to be made, with safe names.
class ChildLocations {
public:
    /// Names the child after `original`, or `otherwise` when that is empty. A null location is left
    /// out.
    void add(const std::string& original, SuiteHandle location, const char* otherwise = "unnamed");

    const GroupEntries& entries() const noexcept { return entries_; }

private:
    SiblingNames names_;
    GroupEntries entries_;
};

/// Makes the groups of a static scene's locations, all from one file.
class LocationMaker {
public:
    LocationMaker(const AttributeMaker& make, const std::string& filename);

    /// The first attributes of every location: its type and where it comes from.
    GroupEntries attributes(const char* type, const std::string& originalName) const;

    /// Adds "xform" unless the matrix is the identity.
    void addXform(GroupEntries& attributes, const Matrix& matrix) const;

    SuiteHandle location(const GroupEntries& attributes, const ChildLocations& children) const;
    SuiteHandle location(const GroupEntries& attributes) const;

    const AttributeMaker& make() const noexcept { return make_; }

private:
    AttributeMaker make_;
    SuiteHandle file_;
};

}  // namespace AssimpImport
