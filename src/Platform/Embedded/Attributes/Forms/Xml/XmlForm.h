// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace Sylvar3::internal::OvAttribute::Embedded {

/// The words of the XML form.
namespace XmlForm {

/// The values of "type", by kind; the first one is that of the null attribute.
constexpr std::string_view kTypes[] = {"null", "int", "float", "double", "string", "group"};

}  // namespace XmlForm

}  // namespace Sylvar3::internal::OvAttribute::Embedded
