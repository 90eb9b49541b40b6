// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/suites/RenderOutputUtilsSuite.h>

namespace SYLVAR {

/// The table: filled at the first call, for the life of the process. Any thread.
const OvRenderOutputUtilsSuite* renderOutputUtilsSuite();

}  // namespace SYLVAR
