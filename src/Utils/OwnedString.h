// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/DataAttribute.h>

#include <string>

namespace SYLVAR {

/// A text as an entry of a plain table returns it: a new string, with one reference for the caller
/// to give back. Any thread.
inline OvAttributeStruct* ownedString(const std::string& text) {
    return Sylvar3::internal::OvAttribute::StringAttribute(text).detach();
}

}  // namespace SYLVAR
