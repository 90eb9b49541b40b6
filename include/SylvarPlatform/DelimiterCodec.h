// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Export.h>

#include <string>
#include <string_view>

namespace Sylvar3::internal::OvAttribute {

/// The encoded form of a child name: `.`, `/` and `%` are written as `%XX`, two upper-case
/// hexadecimal digits.
SYLVAR_PLATFORM_API std::string DelimiterEncode(const std::string& name);

/// The name that an encoded name stands for: `%XX`, two hexadecimal digits of either case, is one
/// byte. A malformed escape stands as it is.
SYLVAR_PLATFORM_API std::string DelimiterDecode(const std::string& encoded);

/// The same, appended to `text`: a path grows by a name without a string in between.
SYLVAR_PLATFORM_API void DelimiterDecodeAppend(std::string_view encoded, std::string& text);

}  // namespace Sylvar3::internal::OvAttribute
