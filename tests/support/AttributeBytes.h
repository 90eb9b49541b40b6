// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/AttributeFile.h>

#include <stdexcept>
#include <string>

namespace ovtest {

/// The attribute as the bytes of a file of this form.
inline std::string bytesOf(const Sylvar3::internal::OvAttribute::Attribute& attribute,
                           Sylvar3::internal::OvAttribute::AttributeForm form,
                           Sylvar3::internal::OvAttribute::AttributeContent content =
                               Sylvar3::internal::OvAttribute::AttributeContent::Attribute) {
    std::string bytes;
    const std::string error = writeAttribute(
        attribute, content, form, &bytes, [](void* stream, const void* piece, long size) {
            static_cast<std::string*>(stream)->append(static_cast<const char*>(piece),
                                                      static_cast<std::size_t>(size));
            return 1;
        });
    if (!error.empty()) {
        throw std::runtime_error(error);
    }
    return bytes;
}

inline std::string binaryOf(const Sylvar3::internal::OvAttribute::Attribute& attribute) {
    return bytesOf(attribute, Sylvar3::internal::OvAttribute::AttributeForm::Binary);
}

inline Sylvar3::internal::OvAttribute::AttributeReadResult readBytes(const std::string& bytes) {
    return Sylvar3::internal::OvAttribute::readAttributeBytes(bytes.data(), bytes.size());
}

}  // namespace ovtest
