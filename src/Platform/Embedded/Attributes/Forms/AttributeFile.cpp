// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/AttributeFile.h>

#include "Platform/Embedded/Attributes/Forms/Binary/AttributeFile_generated.h"
#include "Platform/Embedded/Attributes/Forms/Binary/BinaryForm.h"
#include "Platform/Embedded/Attributes/Forms/ByteSource.h"
#include "Platform/Embedded/Attributes/Forms/FileForms.h"
#include "Platform/Support/ReplacementFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace Sylvar3::internal::OvAttribute {

namespace {

namespace BinaryForm = Embedded::BinaryForm;
using Embedded::ByteSource;
using Embedded::ReadValue;

bool looksBinary(std::string_view begin) {
    return begin.size() >= BinaryForm::kIdentifierOffset + BinaryForm::kIdentifierBytes &&
           begin.substr(BinaryForm::kIdentifierOffset, BinaryForm::kIdentifierBytes) ==
               File::AttributeFileIdentifier();
}

/// A text begins with its first brace, white space, a comment or a byte order mark.
bool looksLikeText(std::string_view begin) {
    return !begin.empty() && std::strchr("{ \t\r\n/\xEF", begin[0]) != nullptr && begin[0] != '\0';
}

AttributeReadResult resultOf(ReadValue read, AttributeForm form) {
    return {Attribute::adopt(read.value), read.content, form, std::move(read.error)};
}

AttributeReadResult failedWith(std::string error) {
    AttributeReadResult result;
    result.error = std::move(error);
    return result;
}

using Support::FileHandle;

std::string quoted(const std::string& filename) {
    return "\"" + filename + "\"";
}

std::string systemError() {
    return std::strerror(errno);
}

long readFromFile(void* stream, void* buffer, long size) {
    return static_cast<long>(
        std::fread(buffer, 1, static_cast<std::size_t>(size), static_cast<std::FILE*>(stream)));
}

int writeToFile(void* stream, const void* bytes, long size) {
    const auto wanted = static_cast<std::size_t>(size);
    return std::fwrite(bytes, 1, wanted, static_cast<std::FILE*>(stream)) == wanted ? 1 : 0;
}

struct MemoryStream {
    const char* next;
    std::size_t left;
};

long readFromMemory(void* stream, void* buffer, long size) {
    auto& memory = *static_cast<MemoryStream*>(stream);
    const std::size_t delivered = std::min(memory.left, static_cast<std::size_t>(size));
    if (delivered != 0) {
        std::memcpy(buffer, memory.next, delivered);
    }
    memory.next += delivered;
    memory.left -= delivered;
    return static_cast<long>(delivered);
}

}  // namespace

AttributeReadResult readAttribute(void* stream, OvReadFunction read) {
    ByteSource source(stream, read);
    source.readUpTo(BinaryForm::kIdentifierOffset + BinaryForm::kIdentifierBytes);
    if (looksBinary(source.bytes())) {
        source.readAll();
        return resultOf(Embedded::readBinary(source.bytes()), AttributeForm::Binary);
    }
    if (looksLikeText(source.bytes())) {
        source.readAll();
        return resultOf(Embedded::readText(source.bytes()), AttributeForm::Text);
    }
    return failedWith(source.bytes().empty() ? "It is empty."
                                             : "It is neither the binary nor the text form.");
}

AttributeReadResult readAttributeBytes(const void* bytes, std::size_t size) {
    MemoryStream stream{static_cast<const char*>(bytes), size};
    return readAttribute(&stream, readFromMemory);
}

AttributeReadResult readAttributeFile(const std::string& filename) {
    const FileHandle file(std::fopen(filename.c_str(), "rb"));
    if (!file) {
        return failedWith("Cannot open " + quoted(filename) + ": " + systemError() + ".");
    }
    AttributeReadResult result = readAttribute(file.get(), readFromFile);
    if (std::ferror(file.get())) {
        return failedWith("Cannot read " + quoted(filename) + ": " + systemError() + ".");
    }
    if (!result.error.empty()) {
        result.error = quoted(filename) + ": " + result.error;
    }
    return result;
}

std::string writeAttribute(const Attribute& attribute,
                           AttributeContent content,
                           AttributeForm form,
                           void* stream,
                           OvWriteFunction write) {
    if (!attribute) {
        return "The null attribute cannot be written.";
    }
    const auto& value = *attribute.handle();
    return form == AttributeForm::Binary ? Embedded::writeBinary(value, content, stream, write)
                                         : Embedded::writeText(value, content, stream, write);
}

std::string writeAttributeFile(const Attribute& attribute,
                               AttributeContent content,
                               AttributeForm form,
                               const std::string& filename) {
    const std::string cannotWrite = "Cannot write " + quoted(filename) + ": ";
    Support::ReplacementFile file(filename);
    if (!file.get()) {
        return cannotWrite + systemError() + ".";
    }
    const std::string error = writeAttribute(attribute, content, form, file.get(), writeToFile);
    if (!error.empty() && !std::ferror(file.get())) {
        return cannotWrite + error;
    }
    return file.commit() ? std::string() : cannotWrite + systemError() + ".";
}

AttributeForm attributeFormOf(const std::string& filename) {
    constexpr std::string_view kTextEnding = ".json";
    const bool isText =
        filename.size() >= kTextEnding.size() &&
        filename.compare(filename.size() - kTextEnding.size(), kTextEnding.size(), kTextEnding) ==
            0;
    return isText ? AttributeForm::Text : AttributeForm::Binary;
}

}  // namespace Sylvar3::internal::OvAttribute
