// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Values/Value.h"

#include <string_view>

namespace Sylvar3::internal::OvAttribute::Embedded {

/// The attribute that an XML text stands for, with one reference; null when the text is anything
/// else. Needs at most 16 times the text's size in memory. Throws `std::bad_alloc`. Any thread.
Value* readXml(std::string_view xml);

}  // namespace Sylvar3::internal::OvAttribute::Embedded
