// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/OpType.h>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// What op types of plug-ins are offered. Lives as long as the process.
const OvOpHost* opHost();

}  // namespace Sylvar3::internal::OvSylvar::Embedded
