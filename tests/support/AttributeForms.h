// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Attribute.h>
#include <SylvarPlatform/AttributeFile.h>

#include <string>

namespace ovtest {

/// The whole of what is written through it.
inline int appendTo(void* text, const void* bytes, long size) {
    static_cast<std::string*>(text)->append(static_cast<const char*>(bytes),
                                            static_cast<std::size_t>(size));
    return 1;
}

/// The text form of an attribute, or "error: " and why there is none.
inline std::string textOf(const Sylvar3::internal::OvAttribute::Attribute& attribute) {
    using namespace Sylvar3::internal::OvAttribute;
    std::string text;
    const std::string error = writeAttribute(
        attribute, AttributeContent::Attribute, AttributeForm::Text, &text, appendTo);
    return error.empty() ? text : "error: " + error;
}

/// A text that is or should be one of the text form.
inline Sylvar3::internal::OvAttribute::AttributeReadResult readTextForm(const std::string& text) {
    return Sylvar3::internal::OvAttribute::readAttributeBytes(text.data(), text.size());
}

}  // namespace ovtest
