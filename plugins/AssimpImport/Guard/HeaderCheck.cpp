// SPDX-License-Identifier: Apache-2.0
#include "Guard/HeaderCheck.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <vector>

#include "ImportError.h"

namespace AssimpImport {
namespace {

constexpr std::size_t kHeaderBytes = 1 << 16;

const char* const kPlyTypes[] = {"char",
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

std::string readHeader(const std::string& filename) {
    std::string header(kHeaderBytes, '\0');
    std::ifstream file(filename, std::ios::binary);
    file.read(header.data(), static_cast<std::streamsize>(header.size()));
    header.resize(static_cast<std::size_t>(file.gcount()));
    return header;
}

void checkCount(const std::string& digits, std::int64_t size) {
    if (std::strtoull(digits.c_str(), nullptr, 10) > static_cast<unsigned long long>(size)) {
        throw ImportError("its header announces " + digits + " elements, more than it can hold");
    }
}

std::vector<std::string> wordsOf(const std::string& line) {
    std::istringstream words(line);
    return {std::istream_iterator<std::string>(words), std::istream_iterator<std::string>()};
}

bool isNumber(const std::string& word) {
    return std::all_of(word.begin(), word.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool isPlyType(const std::string& word) {
    return std::find(std::begin(kPlyTypes), std::end(kPlyTypes), word) != std::end(kPlyTypes);
}

bool isPlyProperty(const std::vector<std::string>& words) {
    if (words.size() == 5 && words[1] == "list") {
        return isPlyType(words[2]) && isPlyType(words[3]);
    }
    return words.size() == 3 && isPlyType(words[1]);
}

bool isPlyLine(const std::vector<std::string>& words) {
    const std::string& word = words.front();
    if (word == "element") {
        return words.size() == 3 && isNumber(words[2]);
    }
    if (word == "property") {
        return isPlyProperty(words);
    }
    return word == "ply" || word == "format" || word == "comment" || word == "obj_info";
}

void checkPly(std::string header, std::int64_t size) {
    std::replace(header.begin(), header.end(), '\r', '\n');
    std::istringstream lines(header);
    for (std::string line; std::getline(lines, line);) {
        const std::vector<std::string> words = wordsOf(line);
        if (words.empty()) {
            continue;
        }
        if (words.front() == "end_header") {
            return;
        }
        if (!isPlyLine(words)) {
            throw ImportError("its header makes no sense at \"" + line.substr(0, 80) + "\"");
        }
        if (words.front() == "element") {
            checkCount(words[2], size);
        }
    }
    throw ImportError("its header has no end");
}

std::string withoutComments(const std::string& text) {
    std::string kept;
    bool comment = false;
    for (const char c : text) {
        comment = c == '#' || (comment && c != '\n' && c != '\r');
        kept += comment ? ' ' : c;
    }
    return kept;
}

void checkOff(const std::string& header, std::int64_t size) {
    std::string text = withoutComments(header);
    int counts = 2;
    const std::size_t mark = text.substr(0, 64).find("OFF");
    if (mark != std::string::npos) {
        counts += text.substr(0, mark).find('n') == std::string::npos ? 0 : 1;
        text.erase(0, mark + 3);
    }
    std::istringstream words(text);
    for (std::string word; counts > 0 && words >> word; --counts) {
        checkCount(word, size);
    }
}

}  // namespace

void checkHeader(const std::string& filename, const AssetFormat& format, std::int64_t size) {
    const std::string extension = format.extension;
    if (extension == "ply") {
        checkPly(readHeader(filename), size);
    } else if (extension == "off") {
        checkOff(readHeader(filename), size);
    }
}

}  // namespace AssimpImport
