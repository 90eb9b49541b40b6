// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupAttribute.h>
#include <SylvarPlatform/suites/AssetImporter.h>

#include <string>
#include <vector>

/// Imports assets through the plug-in as a host does: loaded at run time, spoken to in C.
namespace importing {

using namespace Sylvar3::internal::OvAttribute;

/// The table of the plug-in; loaded once, and never unloaded.
const OvAssetImporter& importer();

OvAssetImportOptions defaultOptions();

/// What one import gave.
struct Import {
    GroupAttribute scene;  ///< Null when it failed.
    std::string message;
};

Import importFile(const std::string& filename,
                  const OvAssetImportOptions& options = defaultOptions(),
                  OvImportProgress progress = nullptr,
                  void* progressContext = nullptr);

/// A file beside the tests.
std::string dataFile(const std::string& name);

/// Writes a file for this test alone; returns its name.
std::string writeFile(const std::string& name, const std::string& content);

/// A glTF document with one triangle, whose points are the first 36 bytes of `buffer`.
std::string gltfTriangle(const std::string& buffer, int bufferSize);

/// The location at a path of child names, "materials/paint", below /root; null when absent.
GroupAttribute locationAt(const GroupAttribute& scene, const std::string& path);

/// An attribute of a location by its dotted name; null when absent or of another kind.
template <class Wanted>
Wanted attributeOf(const GroupAttribute& location, const std::string& name) {
    return location.getChild<Wanted>("a." + name);
}

std::string stringOf(const GroupAttribute& location, const std::string& name);
double doubleOf(const GroupAttribute& location, const std::string& name);
std::vector<double> doublesOf(const GroupAttribute& location, const std::string& name);
std::vector<float> floatsOf(const GroupAttribute& location, const std::string& name);
std::vector<int> intsOf(const GroupAttribute& location, const std::string& name);
std::vector<std::string> childNames(const GroupAttribute& location);

/// All locations of a scene, with the top; none is visited by recursion.
std::vector<GroupAttribute> allLocations(const GroupAttribute& scene);

}  // namespace importing
