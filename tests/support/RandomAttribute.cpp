// SPDX-License-Identifier: Apache-2.0
#include "support/RandomAttribute.h"

#include <SylvarPlatform/GroupAttribute.h>

#include <cstring>
#include <iterator>
#include <utility>

namespace ovtest {

using namespace Sylvar3::internal::OvAttribute;

namespace {

constexpr const char* kPieces[] = {"a",
                                   "name",
                                   ".",
                                   "/",
                                   "\"",
                                   "'",
                                   "$",
                                   "$x",
                                   "$float",
                                   "<",
                                   "&amp;",
                                   ">",
                                   "]]>",
                                   "\\",
                                   "\\x",
                                   "\\x41",
                                   "\\x4",
                                   "\\x5C",
                                   "\\\\x00",
                                   "%41",
                                   " ",
                                   "\t",
                                   "\n",
                                   "\r\n",
                                   "\x01",
                                   "\x1F",
                                   "\x7F",
                                   "\xC2\x80",
                                   "\xC2\x9F",
                                   "\xC2\xA0",
                                   "\xC3\xA9",
                                   "\xE2\x82\xAC",
                                   "\xF0\x9F\x98\x80",
                                   "\xEF\xBB\xBF",
                                   "\xEF\xBF\xBD",
                                   "\xEF\xBF\xBE",
                                   "\xEF\xBF\xBF",
                                   "\xED\xA0\x80",
                                   "\xC0\xAF",
                                   "\xE2\x82",
                                   "\xF5",
                                   "\xFF",
                                   "\x80",
                                   "null",
                                   "{}",
                                   "//",
                                   "1.0",
                                   "nan"};

template <class T>
T fromBits(std::uint64_t bits) {
    T value{};
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

}  // namespace

std::string RandomAttribute::text() {
    std::string result;
    const std::size_t pieces = below(3) == 0 ? below(8) : below(2);
    for (std::size_t i = 0; i < pieces; ++i) {
        result += kPieces[below(std::size(kPieces))];
    }
    if (below(8) == 0) {
        result += static_cast<char>(1 + below(255));
    }
    return result;
}

std::int32_t RandomAttribute::anyInt() {
    constexpr std::int32_t kOdd[] = {0, 1, -1, 2147483647, -2147483647 - 1};
    return below(2) == 0 ? kOdd[below(std::size(kOdd))] : static_cast<std::int32_t>(random_());
}

float RandomAttribute::anyFloat() {
    constexpr std::uint32_t kOdd[] = {0x00000000,
                                      0x80000000,
                                      0x7F800000,
                                      0xFF800000,
                                      0x7FC00000,
                                      0xFFC00000,
                                      0x7FC00001,
                                      0x7F800001,
                                      0xFFFFFFFF,
                                      0x00000001,
                                      0x7F7FFFFF,
                                      0x3F800000};
    switch (below(3)) {
        case 0:
            return fromBits<float>(kOdd[below(std::size(kOdd))]);
        case 1:
            return static_cast<float>(below(2000)) / 10.0F - 100.0F;
        default:
            return fromBits<float>(random_());
    }
}

double RandomAttribute::anyDouble() {
    constexpr std::uint64_t kOdd[] = {0x0000000000000000,
                                      0x8000000000000000,
                                      0x7FF0000000000000,
                                      0xFFF0000000000000,
                                      0x7FF8000000000000,
                                      0xFFF8000000000000,
                                      0x7FF8000000000001,
                                      0x7FF0000000000001,
                                      0xFFFFFFFFFFFFFFFF,
                                      0x0000000000000001,
                                      0x7FEFFFFFFFFFFFFF,
                                      0x3FF0000000000000};
    switch (below(4)) {
        case 0:
            return fromBits<double>(kOdd[below(std::size(kOdd))]);
        case 1:
            return static_cast<double>(below(2000)) / 10.0 - 100.0;
        case 2:
            return static_cast<double>(below(1000));
        default:
            return fromBits<double>(random_());
    }
}

template <class T, class Make>
std::vector<T> RandomAttribute::values(std::size_t count, Make make) {
    std::vector<T> result;
    for (std::size_t i = 0; i < count; ++i) {
        result.push_back(make());
    }
    return result;
}

template <class Wanted, class T, class Make>
Attribute RandomAttribute::samples(Make make) {
    constexpr long kTuples[] = {1, 1, 1, 2, 3, 4, 16, 1000, 2147483647};
    const long tuple = kTuples[below(std::size(kTuples))];
    const std::size_t count = below(10) == 0 ? 100 + below(100) : below(2) == 0 ? 1 : below(7);
    if (below(2) == 0) {
        return Wanted(values<T>(count, make), tuple);
    }
    TimedSamples<T> timed;
    for (std::size_t i = below(5); i != 0; --i) {
        const float time = below(3) == 0 ? anyFloat() : static_cast<float>(below(3));
        timed.emplace_back(time, values<T>(count, make));
    }
    return Wanted(timed, tuple);
}

Attribute RandomAttribute::data() {
    switch (below(4)) {
        case 0:
            return samples<IntAttribute, std::int32_t>([this] { return anyInt(); });
        case 1:
            return samples<FloatAttribute, float>([this] { return anyFloat(); });
        case 2:
            return samples<DoubleAttribute, double>([this] { return anyDouble(); });
        default:
            return samples<StringAttribute, std::string>([this] { return text(); });
    }
}

Attribute RandomAttribute::group(int depth) {
    std::vector<GroupAttribute::Child> children;
    for (std::size_t i = below(6); i != 0; --i) {
        const bool isNull = below(6) == 0;
        children.emplace_back(text(), isNull ? Attribute() : any(depth - 1));
    }
    return GroupAttribute(children, below(3) == 0);
}

Attribute RandomAttribute::any(int depth) {
    if (!known_.empty() && below(8) == 0) {
        return known_[below(known_.size())];
    }
    const Attribute made = depth > 0 && below(2) == 0 ? group(depth) : data();
    if (known_.size() < 20) {
        known_.push_back(made);
    }
    return made;
}

Attribute deepAttribute(int levels) {
    Attribute inner = IntAttribute(1);
    for (int i = 0; i < levels; ++i) {
        inner = GroupAttribute({{"g", inner}}, i % 2 == 1);
    }
    return inner;
}

Attribute wideAttribute(int children) {
    std::vector<GroupAttribute::Child> list;
    for (int i = 0; i < children; ++i) {
        list.emplace_back("child" + std::to_string(i), FloatAttribute(static_cast<float>(i)));
    }
    return GroupAttribute(list, false);
}

Attribute doublingAttribute(int levels) {
    Attribute inner = IntAttribute(1);
    for (int i = 0; i < levels; ++i) {
        inner = GroupAttribute({{"a", inner}, {"b", inner}}, false);
    }
    return inner;
}

}  // namespace ovtest
