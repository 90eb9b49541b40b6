// SPDX-License-Identifier: Apache-2.0
// Reads a text; what can be read must be the same after it was written and read again.
#include "Platform/Embedded/Attributes/Forms/FileForms.h"
#include "Platform/Embedded/Attributes/Values/ContentHash.h"
#include "Platform/Embedded/Attributes/Values/Lifetime.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

using namespace Sylvar3::internal::OvAttribute;
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

void writeAndReadAgain(const ReadValue& first) {
    std::string text;
    require(writeText(*first.value, first.content, &text, append).empty());
    const ReadValue second = readText(text);
    require(second.value && second.content == first.content);
    const OvAttributeHash a = contentHashOf(first.value);
    const OvAttributeHash b = contentHashOf(second.value);
    require(a.words[0] == b.words[0] && a.words[1] == b.words[1]);
    release(*second.value);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ReadValue read = readText({reinterpret_cast<const char*>(data), size});
    require(read.error.empty() == (read.value != nullptr));
    if (read.value) {
        writeAndReadAgain(read);
        release(*read.value);
    }
    return 0;
}
