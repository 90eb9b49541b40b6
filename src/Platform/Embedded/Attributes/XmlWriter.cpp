// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/XmlWriter.h"

namespace Sylvar3::internal::OvAttribute::Embedded {

bool writeXmlTo(const Value* /*value*/, void* /*stream*/, OvWriteFunction /*write*/) {
    return false;
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
