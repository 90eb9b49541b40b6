// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/FileForms.h"

namespace Sylvar3::internal::OvAttribute::Embedded {

std::string writeText(const Value& /*value*/,
                      AttributeContent /*content*/,
                      void* /*stream*/,
                      OvWriteFunction /*write*/) {
    return "The text form can't be written yet.";
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
