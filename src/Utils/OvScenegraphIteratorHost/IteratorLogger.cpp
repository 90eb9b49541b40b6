// SPDX-License-Identifier: Apache-2.0
#include "Utils/OvScenegraphIteratorHost/IteratorLogger.h"

#include "Platform/Support/OnceBuilt.h"

namespace SYLVAR {

const OvLoggingHost::OvLoggerGlue& iteratorLogger() {
    using OvLoggingHost::OvLoggerGlue;
    static Sylvar3::internal::Support::OnceBuilt<OvLoggerGlue> built;
    return built.get([] { return OvLoggerGlue("ScenegraphIteratorHost"); });
}

}  // namespace SYLVAR
