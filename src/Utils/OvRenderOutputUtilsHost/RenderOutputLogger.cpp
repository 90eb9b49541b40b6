// SPDX-License-Identifier: Apache-2.0
#include "Utils/OvRenderOutputUtilsHost/RenderOutputLogger.h"

#include "Platform/Support/OnceBuilt.h"

namespace SYLVAR {

const OvLoggingHost::OvLoggerGlue& renderOutputLogger() {
    using OvLoggingHost::OvLoggerGlue;
    static Sylvar3::internal::Support::OnceBuilt<OvLoggerGlue> built;
    return built.get([] { return OvLoggerGlue("RenderOutputUtils"); });
}

}  // namespace SYLVAR
