// SPDX-License-Identifier: Apache-2.0
#include "Guard/OffText.h"

#include "Guard/TextLines.h"
#include "ImportError.h"

#include <algorithm>
#include <sstream>

namespace AssimpImport {
namespace {

// Takes lines in their order: the mark with its letters, the counts, and then one line for each
// point and face. "n" before the mark puts a number before the counts.
class OffLines {
public:
    explicit OffLines(std::int64_t size) noexcept : size_(size) {}

    void take(std::string line) {
        line.erase(std::min(line.find('#'), line.size()));
        if (numbersBefore_ < 0) {
            takeMark(line);
        }
        const std::vector<std::string> words = wordsOf(line);
        if (counts_ == 2) {
            left_ -= words.empty() ? 0 : 1;
        }
        for (std::size_t i = 0; i < words.size() && counts_ < 2; ++i) {
            takeNumber(words[i]);
        }
    }

    bool hasTooMany() const noexcept { return left_ < 0; }

private:
    void takeMark(std::string& line) {
        const std::size_t mark = line.find("OFF");
        if (wordsOf(line).empty()) {
            return;
        }
        numbersBefore_ = 0;
        if (mark != std::string::npos) {
            numbersBefore_ = line.substr(0, mark).find('n') == std::string::npos ? 0 : 1;
            line.erase(0, mark + 3);
        }
    }

    void takeNumber(const std::string& word) {
        if (numbersBefore_ > 0) {
            --numbersBefore_;
        } else {
            left_ += announcedCount(word, size_);
            ++counts_;
        }
    }

    std::int64_t size_;
    int numbersBefore_ = -1;  // -1: the mark has not come
    int counts_ = 0;
    std::int64_t left_ = 0;
};

}  // namespace

void checkOffText(const std::string& text) {
    OffLines off(static_cast<std::int64_t>(text.size()));
    std::istringstream lines(withPlainLineEnds(text));
    for (std::string line; std::getline(lines, line);) {
        off.take(line);
    }
    if (off.hasTooMany()) {
        throw ImportError("it has more lines than its header announces");
    }
}

}  // namespace AssimpImport
