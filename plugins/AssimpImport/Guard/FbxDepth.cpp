// SPDX-License-Identifier: Apache-2.0
#include "Guard/FbxDepth.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace AssimpImport {
namespace {

constexpr char kMagic[] = "Kaydara FBX Binary";
constexpr std::int64_t kVersionPlace = 23;
constexpr std::int64_t kFirstRecord = 27;
constexpr std::uint64_t kWideVersion = 7500;

struct Record {
    std::int64_t end = 0;  // 0: the mark behind the last record of a list
    std::int64_t firstChild = 0;
};

std::uint64_t readNumber(std::istream& file, std::int64_t bytes) {
    unsigned char text[8] = {};
    file.read(reinterpret_cast<char*>(text), bytes);
    std::uint64_t value = 0;
    for (std::int64_t i = bytes - 1; i >= 0; --i) {
        value = (value << 8) | text[i];
    }
    return value;
}

Record readRecord(std::istream& file, std::int64_t place, std::int64_t width) {
    file.seekg(place);
    const std::uint64_t end = readNumber(file, width);
    readNumber(file, width);
    const std::uint64_t properties = readNumber(file, width);
    const std::uint64_t name = readNumber(file, 1);
    const std::int64_t header = place + 3 * width + 1;
    return {static_cast<std::int64_t>(end), header + static_cast<std::int64_t>(properties + name)};
}

}  // namespace

bool isBinaryFbx(std::istream& file) {
    char start[sizeof kMagic - 1] = {};
    file.read(start, sizeof start);
    file.clear();
    file.seekg(0);
    return std::memcmp(start, kMagic, sizeof start) == 0;
}

std::int64_t binaryFbxDepth(std::istream& file) {
    file.seekg(kVersionPlace);
    const std::int64_t width = readNumber(file, 4) >= kWideVersion ? 8 : 4;
    std::vector<std::int64_t> ends;
    std::size_t deepest = 0;
    std::int64_t place = kFirstRecord;
    while (file) {
        const Record record = readRecord(file, place, width);
        const bool inside = record.end > record.firstChild;
        if (record.end == 0 && ends.empty()) {
            break;
        }
        if (record.end == 0) {
            place = ends.back();
            ends.pop_back();
        } else if (record.end <= place || record.firstChild <= place) {
            break;
        } else {
            place = inside ? record.firstChild : record.end;
            ends.insert(ends.end(), inside ? 1 : 0, record.end);
        }
        deepest = std::max(deepest, ends.size());
    }
    return static_cast<std::int64_t>(deepest);
}

}  // namespace AssimpImport
