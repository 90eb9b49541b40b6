// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <assimp/mesh.h>

#include <array>
#include <cstdint>
#include <vector>

namespace AssimpImport {

/// The polygons of a mesh, fit for use: every index names a point, every number is finite.
struct PolygonMesh {
    std::vector<float> points;             ///< Three for each point.
    std::vector<float> normals;            ///< Three for each point, or none at all.
    std::vector<float> st;                 ///< Two for each point, or none at all.
    std::vector<std::int32_t> faceCounts;  ///< Corners of each face; at least 3.
    std::vector<std::int32_t> indices;     ///< The faces' corners, one face after the other.

    bool empty() const noexcept { return faceCounts.empty(); }
};

/// The polygons of an Assimp mesh, of which nothing is taken for granted. Faces of one or two
/// corners are left out, and so are those that use a point that is not there or not finite. The
/// points stay as they are.
PolygonMesh readPolygons(const aiMesh& mesh);

/// Makes one point of corners with the same position, normal and st, in the order of first use.
void weldPoints(PolygonMesh& mesh);

/// The box around the points that are used: minx, maxx, miny, maxy, minz, maxz. There must be one.
std::array<double, 6> boundOf(const PolygonMesh& mesh);

}  // namespace AssimpImport
