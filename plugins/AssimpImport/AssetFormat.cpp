// SPDX-License-Identifier: Apache-2.0
#include "AssetFormat.h"

#include <algorithm>

namespace AssimpImport {
namespace {

constexpr FieldOfView kHorizontal = FieldOfView::Horizontal;
constexpr FieldOfView kGltfView = FieldOfView::VerticalTimesAspect;

const AssetFormat kFormats[] = {
    // extension, nesting, field of view, turned axis, scaled root, lonely corners, rooted lenses,
    // half cones
    {"obj", Nesting::Flat, kHorizontal, 0, false, true, false, false},
    {"gltf", Nesting::Json, kGltfView, 0, false, false, false, true},
    {"glb", Nesting::BinaryJson, kGltfView, 0, false, false, false, true},
    {"fbx", Nesting::Fbx, kHorizontal, 0, false, true, false, false},
    {"dae", Nesting::Xml, kHorizontal, 0, true, true, false, false},
    {"ply", Nesting::Flat, kHorizontal, 0, false, false, false, false},
    {"stl", Nesting::Flat, kHorizontal, 0, false, true, false, false},
    {"3ds", Nesting::Chunks, FieldOfView::LensLength, 'z', true, true, true, false},
    {"off", Nesting::Flat, kHorizontal, 0, false, false, false, false},
    {"x3d", Nesting::Xml, kHorizontal, 0, false, true, false, true},
    {"ifc", Nesting::Step, kHorizontal, 'z', true, true, false, false},
};

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string lowerExtension(const std::string& filename) {
    const std::size_t slash = filename.rfind('/');
    const std::size_t dot = filename.rfind('.');
    if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) {
        return std::string();
    }
    std::string extension = filename.substr(dot + 1);
    std::transform(extension.begin(), extension.end(), extension.begin(), lower);
    return extension;
}

}  // namespace

const char* const kAssetExtensions[] =
    {"obj", "gltf", "glb", "fbx", "dae", "ply", "stl", "3ds", "off", "x3d", "ifc", nullptr};

const AssetFormat* findAssetFormat(const std::string& filename) {
    const std::string extension = lowerExtension(filename);
    for (const AssetFormat& format : kFormats) {
        if (extension == format.extension) {
            return &format;
        }
    }
    return nullptr;
}

std::string listAssetExtensions() {
    std::string list;
    for (const AssetFormat& format : kFormats) {
        list += list.empty() ? "" : ", ";
        list += format.extension;
    }
    return list;
}

}  // namespace AssimpImport
