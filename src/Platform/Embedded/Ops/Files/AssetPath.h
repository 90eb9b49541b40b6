// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// The path of an asset's file, from the default asset plug-in. Where that fails, with a warning,
/// the name is taken for the path.
std::string assetPath(const std::string& name);

}  // namespace Sylvar3::internal::OvSylvar::Embedded
