// SPDX-License-Identifier: Apache-2.0
#include "Guard/NestingDepth.h"

#include "Guard/BracketDepth.h"
#include "Guard/FbxDepth.h"
#include "Guard/JsonDepth.h"
#include "Guard/XmlDepth.h"
#include "ImportError.h"

#include <algorithm>
#include <fstream>
#include <limits>
#include <vector>

namespace AssimpImport {
namespace {

constexpr std::int64_t kWholeFile = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kChunkLevels = 1 << 16;  // a chunk names its parent by 16 bits

template <class Scanner>
std::int64_t scan(std::istream& file, Scanner scanner, std::int64_t size = kWholeFile) {
    std::vector<char> block(1 << 16);
    const auto room = static_cast<std::int64_t>(block.size());
    while (size > 0 && file) {
        file.read(block.data(), std::min(size, room));
        const std::int64_t count = file.gcount();
        std::for_each(block.data(), block.data() + count, [&](char c) { scanner.take(c); });
        size -= count;
    }
    return scanner.depth();
}

// Both versions of the container have the length of the text at byte 12 and the text at byte 20.
std::int64_t scanBinaryJson(std::istream& file) {
    unsigned char header[20] = {};
    file.read(reinterpret_cast<char*>(header), sizeof header);
    std::int64_t size = 0;
    for (int i = 15; i >= 12; --i) {
        size = (size << 8) | header[i];
    }
    return scan(file, JsonDepth(), size);
}

std::int64_t scanNesting(std::istream& file, Nesting nesting) {
    switch (nesting) {
        case Nesting::Xml:
            return scan(file, XmlDepth());
        case Nesting::Json:
            return scan(file, JsonDepth());
        case Nesting::BinaryJson:
            return scanBinaryJson(file);
        case Nesting::Fbx:
            return isBinaryFbx(file) ? binaryFbxDepth(file)
                                     : scan(file, BracketDepth('{', '}', '"'));
        case Nesting::Step:
            return scan(file, BracketDepth('(', ')', '\''));
        case Nesting::Chunks:
            return kChunkLevels;
        case Nesting::Flat:
            break;
    }
    return 0;
}

// The time to read a STEP file grows with the square of its depth; the depth of a JSON file counts
// every node that has children.
std::int64_t mostLevels(Nesting nesting) {
    switch (nesting) {
        case Nesting::Step:
            return 1000;
        case Nesting::Json:
        case Nesting::BinaryJson:
            return 1 << 20;
        default:
            return 100000;
    }
}

}  // namespace

std::int64_t nestingDepth(const std::string& filename, Nesting nesting) {
    std::ifstream file(filename, std::ios::binary);
    const std::int64_t depth = scanNesting(file, nesting);
    const std::int64_t most = mostLevels(nesting);
    if (depth > most) {
        throw ImportError("it is nested more than " + std::to_string(most) + " levels deep");
    }
    return depth;
}

}  // namespace AssimpImport
