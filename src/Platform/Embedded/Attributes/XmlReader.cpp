// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/XmlReader.h"

namespace Sylvar3::internal::OvAttribute::Embedded {

Value* readXml(std::string_view /*xml*/) {
    return nullptr;
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
