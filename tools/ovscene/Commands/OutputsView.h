// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Commands/RenderPicture.h"
#include "Scene/RenderOutputs.h"
#include "Scene/SceneErrors.h"
#include "Scene/SceneFile.h"

#include <optional>
#include <string>
#include <vector>

namespace ovscene {

/// One output of a render.
struct OutputPlace {
    std::string name;
    std::string tempLocation;
    std::string tilePath;  ///< Of the temporary location; "" when no tile is being rendered.
};

/// What a render of a scene writes, by the render settings of its top location.
struct OutputsView {
    std::string file;
    std::string cameraPath;
    Picture picture;
    float frame = 1;
    std::optional<std::vector<int>> tile;  ///< As the scene has it, at most four of them.
    std::string whyNone;                   ///< Why there are no outputs; "" when there are some.
    std::vector<OutputPlace> outputs;
    SceneErrors errors;  ///< The top location's own.
};

/// Asks the host's tables. Throws as `topLocation` and `renderPicture` do.
OutputsView outputsView(const SceneFile& file, const OutputNaming& naming);

}  // namespace ovscene
