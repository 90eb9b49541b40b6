// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace Sylvar3::internal::OvAttribute::Embedded {

/// How many bytes the parser needs at most for the nodes and attributes of an XML text. None when
/// the text cannot be an attribute: it isn't UTF-8, has other elements than those of attributes, a
/// document type, an unknown reference, or text outside of the elements. Any thread.
std::optional<std::size_t> xmlNodeBytes(std::string_view xml);

}  // namespace Sylvar3::internal::OvAttribute::Embedded
