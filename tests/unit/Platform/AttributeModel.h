// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Attribute.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace ovtest {

/// The content of an attribute in plain values, to be compared and changed: what is equal here has
/// an equal hash, and nothing else has.
struct AttributeModel {
    using Random = std::mt19937;

    std::int32_t kind = 0;  ///< 0 is the null attribute.

    // Of data. Times and numbers are their bits.
    std::int64_t tupleSize = 1;
    std::vector<std::uint32_t> times;
    std::size_t valuesPerSample = 0;
    std::vector<std::uint64_t> numbers;
    std::vector<std::string> strings;

    // Of a group.
    bool inherits = false;
    std::vector<std::string> names;
    std::vector<AttributeModel> children;

    static AttributeModel random(Random& random, int depth);

    /// Changes one random thing in it or below it; nothing when the one that came up is not there.
    void change(Random& random);

    Sylvar3::internal::OvAttribute::Attribute make() const;

    friend bool operator==(const AttributeModel& a, const AttributeModel& b) {
        return a.kind == b.kind && a.tupleSize == b.tupleSize && a.times == b.times &&
               a.valuesPerSample == b.valuesPerSample && a.numbers == b.numbers &&
               a.strings == b.strings && a.inherits == b.inherits && a.names == b.names &&
               a.children == b.children;
    }
    friend bool operator!=(const AttributeModel& a, const AttributeModel& b) { return !(a == b); }
};

}  // namespace ovtest
