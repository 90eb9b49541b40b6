// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/GroupAttribute.h>

#include "support/AttributeForms.h"

#include <gmock/gmock.h>

#include <stdexcept>
#include <string>

namespace ovtest {

/// An attribute as it is written in the text form: `written(R"({"a": 1})")`.
inline Sylvar3::internal::OvAttribute::Attribute written(const std::string& text) {
    const auto read = readTextForm(R"({"format": "sylvar", "version": 1, "content": "attribute",)"
                                   R"( "root": )" +
                                   text + "}");
    if (!read.error.empty()) {
        throw std::runtime_error(read.error);
    }
    return read.attribute;
}

inline Sylvar3::internal::OvAttribute::GroupAttribute writtenGroup(const std::string& text) {
    using Sylvar3::internal::OvAttribute::GroupAttribute;
    return Sylvar3::internal::OvAttribute::castAttribute<GroupAttribute>(written(text));
}

/// Matches an attribute with the content that the text has: values, names, their order and group
/// inherit.
MATCHER_P(IsWritten, text, std::string(negation ? "is not " : "is ") + text) {
    *result_listener << "it is\n" << arg.getXML() << "and not\n" << written(text).getXML();
    return written(text).getHash() == arg.getHash();
}

}  // namespace ovtest
