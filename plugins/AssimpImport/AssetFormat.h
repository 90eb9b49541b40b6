// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace AssimpImport {

/// How the parts of a file lie inside each other.
enum class Nesting { Flat, Xml, Json, BinaryJson, Fbx, Step, Chunks };

/// What Assimp's horizontal field of view of a camera really is.
enum class FieldOfView {
    Horizontal,           ///< the full horizontal angle, in radians
    VerticalTimesAspect,  ///< the full vertical angle, multiplied by the aspect ratio
    LensLength            ///< a focal length in millimetres, multiplied as if it were degrees
};

/// What is peculiar to a file format as Assimp reads it.
struct AssetFormat {
    const char* extension;  ///< Lower case, without the dot.
    Nesting nesting;
    FieldOfView fieldOfView;
    char turnedAxis;     ///< The axis that the root node's transform has turned to y; 0: none.
    bool scaledRoot;     ///< The root node's transform holds the file's unit.
    bool lonelyCorners;  ///< Every corner of a face comes with a point of its own.
    bool rootedLenses;   ///< Cameras and lights stand in the root node's space, not their node's.
    bool halfCones;      ///< A spot light's cone is measured from its axis.
};

/// The extensions of all formats that are taken; ends with null.
extern const char* const kAssetExtensions[];

/// The format that a file name's extension, in any case, stands for; null when it is not taken.
const AssetFormat* findAssetFormat(const std::string& filename);

/// The extensions in a row, for people.
std::string listAssetExtensions();

}  // namespace AssimpImport
