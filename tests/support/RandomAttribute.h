// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Attribute.h>
#include <SylvarPlatform/DataAttribute.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace ovtest {

/// Makes attributes of all kinds with all oddities that one can have, the same ones for the same
/// seed. Belongs to one thread.
class RandomAttribute {
public:
    using Attribute = Sylvar3::internal::OvAttribute::Attribute;

    explicit RandomAttribute(std::uint64_t seed) : random_(seed) {}

    /// An attribute that is not null: data, or a group of up to `depth` levels.
    Attribute any(int depth = 4);

    Attribute data();
    Attribute group(int depth);

    /// A name or string: often empty or plain, else with dots, slashes, quotes, markup, control
    /// characters, escapes, UTF-8 and bytes that are none. Without NUL bytes.
    std::string text();

    float anyFloat();
    double anyDouble();
    std::int32_t anyInt();

    /// A number from 0 to below `count`.
    std::size_t below(std::size_t count) { return random_() % count; }

private:
    template <class Wanted, class T, class Make>
    Attribute samples(Make make);
    template <class T, class Make>
    std::vector<T> values(std::size_t count, Make make);

    std::mt19937_64 random_;
    std::vector<Attribute> known_;  ///< To be shared.
};

/// Groups inside one another, with a leaf at the bottom.
Sylvar3::internal::OvAttribute::Attribute deepAttribute(int levels);

/// One group of many children with different names.
Sylvar3::internal::OvAttribute::Attribute wideAttribute(int children);

/// Groups with the next one in both of their children: 2 to the power of `levels` leaves.
Sylvar3::internal::OvAttribute::Attribute doublingAttribute(int levels);

}  // namespace ovtest
