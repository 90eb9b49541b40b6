// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/suites/ScenegraphIteratorSuite.h>

#include <string>
#include <vector>

/// What the host's render output table tells of a location's render settings. The location is
/// borrowed. What the table throws travels.
namespace ovscene {

/// The path of the render's camera, below the scene's top location.
std::string renderCameraPath(OvSgIteratorStruct* top);

/// What a person adds to the place of an output.
struct OutputNaming {
    std::string prefix;
    std::string suffix;
    float frame = 1;
};

/// Where an output is rendered to before it is moved to its place.
std::string outputTempLocation(OvSgIteratorStruct* location,
                               const std::string& output,
                               const OutputNaming& naming);

/// The path of the tile that is being rendered, from that of the whole picture.
std::string tilePath(OvSgIteratorStruct* location, const std::string& path);

/// The same in a scene that holds nothing but that tile: column and row, and perhaps the numbers of
/// columns and rows.
std::string pathOfTile(const std::vector<int>& tile, const std::string& path);

}  // namespace ovscene
