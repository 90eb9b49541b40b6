// SPDX-License-Identifier: Apache-2.0
#include "Scene/PolygonMesh.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace AssimpImport {
namespace {

constexpr unsigned int kMostPoints = std::numeric_limits<std::int32_t>::max();

bool isFinite(const aiVector3D& v) {
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

std::vector<float> finiteTuples(const aiVector3D* vectors, unsigned int count, int tupleSize) {
    std::vector<float> values;
    values.reserve(static_cast<std::size_t>(count) * static_cast<std::size_t>(tupleSize));
    for (const aiVector3D* v = vectors; v != vectors + count; ++v) {
        const float tuple[] = {v->x, v->y, v->z};
        for (int i = 0; i < tupleSize; ++i) {
            values.push_back(std::isfinite(tuple[i]) ? tuple[i] : 0.0F);
        }
    }
    return values;
}

bool isPolygon(const aiFace& face, const aiMesh& mesh) {
    if (face.mNumIndices < 3 || face.mNumIndices > kMostPoints || !face.mIndices) {
        return false;
    }
    return std::all_of(face.mIndices, face.mIndices + face.mNumIndices, [&](unsigned int index) {
        return index < mesh.mNumVertices && isFinite(mesh.mVertices[index]);
    });
}

void readFaces(const aiMesh& mesh, PolygonMesh& polygons) {
    for (const aiFace* face = mesh.mFaces; face != mesh.mFaces + mesh.mNumFaces; ++face) {
        if (isPolygon(*face, mesh)) {
            polygons.faceCounts.push_back(static_cast<std::int32_t>(face->mNumIndices));
            std::transform(face->mIndices,
                           face->mIndices + face->mNumIndices,
                           std::back_inserter(polygons.indices),
                           [](unsigned int index) { return static_cast<std::int32_t>(index); });
        }
    }
}

}  // namespace

PolygonMesh readPolygons(const aiMesh& mesh) {
    PolygonMesh polygons;
    const unsigned int count = mesh.mNumVertices;
    if (!mesh.mVertices || !mesh.mFaces || count > kMostPoints) {
        return polygons;
    }
    readFaces(mesh, polygons);
    if (polygons.empty()) {
        return polygons;
    }
    polygons.points = finiteTuples(mesh.mVertices, count, 3);
    if (mesh.mNormals) {
        polygons.normals = finiteTuples(mesh.mNormals, count, 3);
    }
    if (mesh.mTextureCoords[0]) {
        polygons.st = finiteTuples(mesh.mTextureCoords[0], count, 2);
    }
    return polygons;
}

std::array<double, 6> boundOf(const PolygonMesh& mesh) {
    constexpr double kFar = std::numeric_limits<double>::max();
    std::array<double, 6> bound = {kFar, -kFar, kFar, -kFar, kFar, -kFar};
    for (const std::int32_t index : mesh.indices) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const float value = mesh.points[static_cast<std::size_t>(index) * 3 + axis];
            bound[axis * 2] = std::min(bound[axis * 2], static_cast<double>(value));
            bound[axis * 2 + 1] = std::max(bound[axis * 2 + 1], static_cast<double>(value));
        }
    }
    return bound;
}

}  // namespace AssimpImport
