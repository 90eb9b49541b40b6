// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Logging.h>

namespace SYLVAR {

/// The logger "RenderOutputUtils". Any thread.
const OvLoggingHost::OvLoggerGlue& renderOutputLogger();

}  // namespace SYLVAR
