// SPDX-License-Identifier: Apache-2.0
#include "Scene/PolygonMesh.h"

#include <string_view>
#include <unordered_map>

namespace AssimpImport {
namespace {

constexpr std::size_t kCornerSize = 8;

using Corner = std::array<float, kCornerSize>;

void copyTuple(const std::vector<float>& from, std::size_t point, std::size_t size, float* to) {
    for (std::size_t i = 0; i < size && !from.empty(); ++i) {
        to[i] = from[point * size + i] + 0.0F;  // -0 becomes 0
    }
}

std::vector<Corner> cornersOf(const PolygonMesh& mesh) {
    std::vector<Corner> corners(mesh.points.size() / 3);
    for (std::size_t point = 0; point < corners.size(); ++point) {
        copyTuple(mesh.points, point, 3, corners[point].data());
        copyTuple(mesh.normals, point, 3, corners[point].data() + 3);
        copyTuple(mesh.st, point, 2, corners[point].data() + 6);
    }
    return corners;
}

std::string_view bytesOf(const Corner& corner) {
    return {reinterpret_cast<const char*>(corner.data()), sizeof corner};
}

void keepPoints(std::vector<float>& values,
                const std::vector<std::size_t>& kept,
                std::size_t size) {
    if (values.empty()) {
        return;
    }
    std::vector<float> left;
    left.reserve(kept.size() * size);
    for (const std::size_t point : kept) {
        for (std::size_t i = 0; i < size; ++i) {
            left.push_back(values[point * size + i]);
        }
    }
    values = std::move(left);
}

}  // namespace

void weldPoints(PolygonMesh& mesh) {
    const std::vector<Corner> corners = cornersOf(mesh);
    std::unordered_map<std::string_view, std::int32_t> places;
    places.reserve(corners.size());
    std::vector<std::size_t> kept;
    for (std::int32_t& index : mesh.indices) {
        const auto point = static_cast<std::size_t>(index);
        const auto next = static_cast<std::int32_t>(kept.size());
        const auto [place, isNew] = places.emplace(bytesOf(corners[point]), next);
        if (isNew) {
            kept.push_back(point);
        }
        index = place->second;
    }
    keepPoints(mesh.points, kept, 3);
    keepPoints(mesh.normals, kept, 3);
    keepPoints(mesh.st, kept, 2);
}

}  // namespace AssimpImport
