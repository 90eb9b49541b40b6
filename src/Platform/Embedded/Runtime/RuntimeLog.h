// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Support/Log.h"
#include "Platform/Support/OnceBuilt.h"

namespace Sylvar3::internal::OvSylvar::Embedded {

/// The logger of the runtime and its ops.
inline const OvLoggingHost::OvLoggerGlue& runtimeLogger() {
    static Support::OnceBuilt<OvLoggingHost::OvLoggerGlue> logger;
    return logger.get([] { return OvLoggingHost::OvLoggerGlue("SylvarRuntime"); });
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
