// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Services/SharedObjectFile.h"

#include <cstdint>
#include <cstring>
#include <elf.h>
#include <fstream>
#include <link.h>

namespace Sylvar3::internal::Embedded {
namespace {

using Header = ElfW(Ehdr);
using Segment = ElfW(Phdr);

constexpr unsigned char kNativeClass = sizeof(void*) == 8 ? ELFCLASS64 : ELFCLASS32;

template <class Struct>
bool readAt(std::ifstream& file, std::uint64_t place, Struct& read) {
    file.seekg(static_cast<std::streamoff>(place));
    file.read(reinterpret_cast<char*>(&read), sizeof(read));
    return file.good();
}

bool isNative(const Header& header) {
    return std::memcmp(header.e_ident, ELFMAG, SELFMAG) == 0 &&
           header.e_ident[EI_CLASS] == kNativeClass && header.e_phentsize == sizeof(Segment);
}

bool endsBehind(const Segment& segment, std::uint64_t size) {
    return segment.p_type == PT_LOAD &&
           (segment.p_filesz > size || segment.p_offset > size - segment.p_filesz);
}

}  // namespace

bool isCutShort(const std::string& filename) {
    std::ifstream file(filename, std::ios::binary | std::ios::ate);
    const auto size = static_cast<std::uint64_t>(file.tellg());
    Header header{};
    if (!readAt(file, 0, header) || !isNative(header)) {
        return false;
    }
    Segment segment{};
    for (std::uint64_t i = 0; i < header.e_phnum; ++i) {
        if (readAt(file, header.e_phoff + i * sizeof segment, segment) &&
            endsBehind(segment, size)) {
            return true;
        }
    }
    return false;
}

}  // namespace Sylvar3::internal::Embedded
