// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/Export.h>
#include <SylvarPlatform/GroupAttribute.h>

#include <string>

namespace SYLVAR {

/// The group that an op tree file holds, as a description: no op is built. The name is taken as it
/// is; the flag means nothing.
///
/// Null when the file holds anything else. Null, with a message on the standard error stream, when
/// there is no such file or no attribute library.
///
/// Throws `std::runtime_error`, "Error opening file: <name>", for a file that is there and cannot
/// be opened. Any thread.
OV_SYLVAR_PRODUCERS_API Sylvar3::internal::OvAttribute::GroupAttribute
LoadOpTreeDescriptionFromFile(const std::string& filename, bool flag);

}  // namespace SYLVAR
