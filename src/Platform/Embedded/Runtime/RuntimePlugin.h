// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/Plugin.h>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// The platform's own runtime, as a plug-in. Lives as long as the process.
OvPluginStruct* runtimePlugin();

}  // namespace Sylvar3::internal::OvSylvar::Embedded
