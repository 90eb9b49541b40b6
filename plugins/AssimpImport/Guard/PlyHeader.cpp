// SPDX-License-Identifier: Apache-2.0
#include "Guard/PlyHeader.h"

#include "Guard/TextLines.h"
#include "ImportError.h"

#include <algorithm>
#include <iterator>
#include <sstream>

namespace AssimpImport {
namespace {

const char* const kTypes[] = {"char",
                              "int8",
                              "uchar",
                              "uint8",
                              "short",
                              "int16",
                              "ushort",
                              "uint16",
                              "int",
                              "int32",
                              "uint",
                              "uint32",
                              "float",
                              "float32",
                              "double",
                              "float64"};

bool isNumber(const std::string& word) {
    return std::all_of(word.begin(), word.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool isType(const std::string& word) {
    return std::find(std::begin(kTypes), std::end(kTypes), word) != std::end(kTypes);
}

bool isProperty(const std::vector<std::string>& words) {
    if (words.size() == 5 && words[1] == "list") {
        return isType(words[2]) && isType(words[3]);
    }
    return words.size() == 3 && isType(words[1]);
}

bool isHeaderLine(const std::vector<std::string>& words) {
    const std::string& word = words.front();
    if (word == "element") {
        return words.size() == 3 && isNumber(words[2]);
    }
    if (word == "property") {
        return isProperty(words);
    }
    return word == "ply" || word == "format" || word == "comment" || word == "obj_info";
}

}  // namespace

void checkPlyHeader(const std::string& header, std::int64_t size) {
    std::istringstream lines(withPlainLineEnds(header));
    for (std::string line; std::getline(lines, line);) {
        const std::vector<std::string> words = wordsOf(line);
        if (words.empty()) {
            continue;
        }
        if (words.front() == "end_header") {
            return;
        }
        if (!isHeaderLine(words)) {
            throw ImportError("its header makes no sense at \"" + line.substr(0, 80) + "\"");
        }
        if (words.front() == "element") {
            announcedCount(words[2], size);
        }
    }
    throw ImportError("its header has no end");
}

}  // namespace AssimpImport
