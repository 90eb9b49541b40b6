// SPDX-License-Identifier: Apache-2.0
#include "Utils/OvRenderOutputUtilsHost/LiveCameras.h"

#include "Platform/Support/Log.h"
#include "Platform/Support/OnceBuilt.h"
#include "Utils/OvRenderOutputUtilsHost/RenderOutputLogger.h"

#include <cstdlib>

namespace SYLVAR {
namespace {

/// The number stands there as one character, as readers of these logs know it.
void tellFinalCount() {
    OV_LOG(renderOutputLogger(),
           debug,
           "Final CameraInfoStruct count: " << static_cast<char>(liveCameras().count));
}

}  // namespace

LiveCameras::LiveCameras() {
    renderOutputLogger();
    // Where no handler can be added the message is missing, and nothing else.
    static_cast<void>(std::atexit(tellFinalCount));
}

LiveCameras& liveCameras() {
    static Sylvar3::internal::Support::OnceBuilt<LiveCameras> built;
    return built.get();
}

}  // namespace SYLVAR
