// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace SYLVAR {

/// How many handles of cameras there are. Without a lock: those who make and release them keep that
/// apart. When the process ends the number goes to the log, as a debug message, unless there never
/// was a handle.
class LiveCameras {
public:
    LiveCameras();
    LiveCameras(const LiveCameras&) = delete;
    LiveCameras& operator=(const LiveCameras&) = delete;

    int count = 0;
};

/// The one of the process.
LiveCameras& liveCameras();

}  // namespace SYLVAR
