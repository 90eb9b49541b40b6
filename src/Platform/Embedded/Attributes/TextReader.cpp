// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/FileForms.h"

namespace Sylvar3::internal::OvAttribute::Embedded {

ReadValue readText(std::string_view /*text*/) {
    ReadValue result;
    result.error = "The text form can't be read yet.";
    return result;
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
