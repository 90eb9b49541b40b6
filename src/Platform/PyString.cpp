// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/PyString.h>

#include <pystring/pystring.h>

#include <algorithm>

namespace Sylvar3::internal::pystring_v1 {
namespace {

constexpr char kWhiteSpace[] = " \t\n\v\f\r";
constexpr auto kNone = std::string::npos;

/// A range of indices as counted from the front; empty ranges can have their ends crossed.
struct Range {
    long start;
    long end;
};

Range rangeOf(const std::string& text, int start, int end) {
    const long size = static_cast<long>(text.size());
    const auto fromFront = [size](long index) {
        return index < 0 ? std::max(0L, index + size) : index;
    };
    return {fromFront(start), std::min(size, fromFront(end))};
}

void splitAtWhiteSpace(const std::string& text, std::vector<std::string>& result, int maxSplits) {
    result.clear();
    std::size_t at = text.find_first_not_of(kWhiteSpace);
    for (int splits = 0; at != kNone; ++splits) {
        const bool isRest = splits == maxSplits;
        const std::size_t end = isRest ? kNone : text.find_first_of(kWhiteSpace, at);
        result.push_back(text.substr(at, end - at));
        at = end == kNone ? kNone : text.find_first_not_of(kWhiteSpace, end);
    }
}

/// An empty text is found in front of every byte and at the end.
std::string interleave(const std::string& text, const std::string& newText, int count) {
    std::string result;
    for (const char c : text) {
        if (count != 0) {
            result += newText;
            --count;
        }
        result += c;
    }
    return count != 0 ? result + newText : result;
}

}  // namespace

bool startswith(const std::string& text, const std::string& prefix, int start, int end) {
    const Range range = rangeOf(text, start, end);
    const long size = static_cast<long>(prefix.size());
    return range.end - range.start >= size &&
           text.compare(static_cast<std::size_t>(range.start), prefix.size(), prefix) == 0;
}

int rfind(const std::string& text, const std::string& wanted, int start, int end) {
    const Range range = rangeOf(text, start, end);
    const long last = range.end - static_cast<long>(wanted.size());
    if (last < range.start) {
        return -1;
    }
    const std::size_t found = text.rfind(wanted, static_cast<std::size_t>(last));
    const bool inside = found != kNone && static_cast<long>(found) >= range.start;
    return inside ? static_cast<int>(found) : -1;
}

std::string slice(const std::string& text, int start, int end) {
    return pystring::slice(text, start, end);
}

void split(const std::string& text,
           std::vector<std::string>& result,
           const std::string& separator,
           int maxSplits) {
    if (separator.empty()) {
        splitAtWhiteSpace(text, result, maxSplits);
    } else {
        pystring::split(text, result, separator, maxSplits);
    }
}

std::string strip(const std::string& text, const std::string& characters) {
    return pystring::strip(text, characters.empty() ? kWhiteSpace : characters);
}

std::string lstrip(const std::string& text, const std::string& characters) {
    return pystring::lstrip(text, characters.empty() ? kWhiteSpace : characters);
}

std::string replace(const std::string& text,
                    const std::string& oldText,
                    const std::string& newText,
                    int count) {
    if (oldText.empty()) {
        return interleave(text, newText, count);
    }
    std::string result;
    std::size_t done = 0;
    for (std::size_t at = text.find(oldText); at != kNone && count != 0; --count) {
        result.append(text, done, at - done).append(newText);
        done = at + oldText.size();
        at = text.find(oldText, done);
    }
    return result.append(text, done, kNone);
}

}  // namespace Sylvar3::internal::pystring_v1
