// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/Renderer.h>

#include "Scene/SceneFile.h"

#include <cstddef>
#include <string>
#include <vector>

namespace ovscene {

/// What a renderer is asked for.
struct RenderJob {
    SceneFile scene;
    std::size_t threads = 1;
    std::string outputFile;            ///< "" for none.
    std::vector<std::string> options;  ///< NAME=VALUE each.
};

/// Has it rendered. A file of ops that can be read again is handed over by its name, anything else
/// as a group of ops: that of a pipe, and for a static scene one op that holds it.
///
/// Empty on success, otherwise what the renderer did instead. Throws InputMalformed when the file
/// holds no scene, before the renderer is called.
std::string render(const OvRenderer& renderer, const RenderJob& job);

}  // namespace ovscene
