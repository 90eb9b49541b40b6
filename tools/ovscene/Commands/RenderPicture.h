// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/suites/ScenegraphIteratorSuite.h>

#include <string>

namespace ovscene {

/// The size of a picture in pixels.
struct Picture {
    std::string name;
    int width = 0;
    int height = 0;

    float aspect() const { return static_cast<float>(width) / static_cast<float>(height); }
};

/// The picture of the render of a file's scene, by the render settings of its top location, as the
/// host's render output table tells it. Throws NotFound, with the name that was probably meant,
/// when the resolution table does not know the resolution.
Picture renderPicture(const std::string& filename, OvSgIteratorStruct* top);

}  // namespace ovscene
