// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/Attribute.h>
#include <SylvarPlatform/AttributeFile.h>

#include <stdexcept>

namespace Sylvar3::internal::OvAttribute {

namespace {

int append(void* text, const void* bytes, long size) {
    static_cast<std::string*>(text)->append(static_cast<const char*>(bytes),
                                            static_cast<std::size_t>(size));
    return 1;
}

}  // namespace

std::string Attribute::getXML() const {
    std::string xml;
    if (!_attrSuite->writeXML(handle_, &xml, append)) {
        throw std::length_error("Attribute::getXML: the attribute expands to more than " +
                                std::to_string(kMaxWrittenAttributes) + " attributes.");
    }
    return xml;
}

Attribute Attribute::parseXML(const std::string& xml) {
    return adopt(_attrSuite->parseXML(xml.data(), static_cast<std::int64_t>(xml.size())));
}

Attribute Attribute::readAttributeStream(void* stream, OvReadFunction read, int /*reserved*/) {
    return adopt(_attrSuite->readStream(stream, read));
}

}  // namespace Sylvar3::internal::OvAttribute
