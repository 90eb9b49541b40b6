// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/AttributeSuite.h>

#include <cstdint>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// A kind of attribute in messages: "int", "float", "double", "string", "group"; "null" for
/// anything else.
inline const char* kindName(std::int32_t type) {
    switch (type) {
        case OV_ATTRIBUTE_INT:
            return "int";
        case OV_ATTRIBUTE_FLOAT:
            return "float";
        case OV_ATTRIBUTE_DOUBLE:
            return "double";
        case OV_ATTRIBUTE_STRING:
            return "string";
        case OV_ATTRIBUTE_GROUP:
            return "group";
        default:
            return "null";
    }
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
