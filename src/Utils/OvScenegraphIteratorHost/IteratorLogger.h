// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Logging.h>

namespace SYLVAR {

/// The logger "ScenegraphIteratorHost". Any thread.
const OvLoggingHost::OvLoggerGlue& iteratorLogger();

}  // namespace SYLVAR
