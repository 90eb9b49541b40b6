// SPDX-License-Identifier: Apache-2.0
// Reads an XML; what can be read must be the same after it was written and read again.
#include "Platform/Embedded/Attributes/Forms/Xml/XmlReader.h"
#include "Platform/Embedded/Attributes/Forms/Xml/XmlWriter.h"
#include "Platform/Embedded/Attributes/Values/ContentHash.h"
#include "Platform/Embedded/Attributes/Values/Lifetime.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

using namespace Sylvar3::internal::OvAttribute::Embedded;

int append(void* text, const void* bytes, long size) {
    static_cast<std::string*>(text)->append(static_cast<const char*>(bytes),
                                            static_cast<std::size_t>(size));
    return 1;
}

void require(bool isTrue) {
    if (!isTrue) {
        std::abort();
    }
}

void writeAndReadAgain(const Value* first) {
    std::string xml;
    require(writeXmlTo(first, &xml, append));
    Value* const second = readXml(xml);
    require(second != nullptr);
    const OvAttributeHash a = contentHashOf(first);
    const OvAttributeHash b = contentHashOf(second);
    require(a.words[0] == b.words[0] && a.words[1] == b.words[1]);
    release(*second);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (Value* const read = readXml({reinterpret_cast<const char*>(data), size})) {
        writeAndReadAgain(read);
        release(*read);
    }
    return 0;
}
