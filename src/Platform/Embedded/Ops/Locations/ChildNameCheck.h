// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// Throws `OpError` for a child's name that no path can hold: "", or one with a "/" or a NUL.
/// `written` is the name as the message shows it.
void checkChildName(std::string_view name, std::string_view written);

/// Throws `OpError` when two children have one name.
void checkForTwins(std::vector<std::string_view> names);

}  // namespace Sylvar3::internal::OvSylvar::Embedded
