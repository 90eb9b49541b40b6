// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/Export.h>

#include <string>

namespace SYLVAR {

/// The architecture that this library was built for: "kelnix1". Any thread.
OV_SYLVAR_PRODUCERS_API std::string GetArchString();

/// The path with every "%ARCH" in it replaced by `GetArchString`. The marker is case-sensitive and
/// ends nowhere: "%ARCHIVE" gives "kelnix1IVE". Any thread.
OV_SYLVAR_PRODUCERS_API std::string ExpandArchPath(const std::string& path);

}  // namespace SYLVAR
