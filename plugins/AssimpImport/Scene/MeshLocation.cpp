// SPDX-License-Identifier: Apache-2.0
#include "Scene/MeshLocation.h"

#include "Scene/PolygonMesh.h"

namespace AssimpImport {
namespace {

SuiteHandle makeGeometry(const AttributeMaker& make, const PolygonMesh& mesh) {
    GroupEntries geometry;
    geometry.add("points", make.floats(mesh.points, 3));
    geometry.add("faceVertexCounts", make.ints(mesh.faceCounts));
    geometry.add("faceVertexIndices", make.ints(mesh.indices));
    if (!mesh.normals.empty()) {
        geometry.add("normals", make.floats(mesh.normals, 3));
    }
    if (!mesh.st.empty()) {
        geometry.add("st", make.floats(mesh.st, 2));
    }
    return make.group(geometry);
}

}  // namespace

SuiteHandle makeMeshLocation(const LocationMaker& locations,
                             const aiMesh& mesh,
                             const AssetFormat& format,
                             const SuiteHandle& material) {
    PolygonMesh polygons = readPolygons(mesh);
    if (polygons.empty()) {
        return SuiteHandle();
    }
    if (format.lonelyCorners) {
        weldPoints(polygons);
    }
    const AttributeMaker& make = locations.make();
    const std::array<double, 6> bound = boundOf(polygons);
    GroupEntries attributes = locations.attributes("mesh", textOf(mesh.mName));
    attributes.add("geometry", makeGeometry(make, polygons));
    attributes.add("bound", make.doubles({bound.begin(), bound.end()}, 1));
    attributes.add("material", material);
    return locations.location(attributes);
}

}  // namespace AssimpImport
