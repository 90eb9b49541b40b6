// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <boost/container/small_vector.hpp>

#include <cstdint>
#include <string_view>

namespace Sylvar3::internal::OvAttribute::Embedded {

/// Names in order, each once, that grow one by one. Allocates nothing for the few short names that
/// most groups have. Belongs to one thread.
class NameList {
public:
    static constexpr std::int64_t kNone = -1;

    /// The place of the name, which is added at the end when it is new. Throws
    /// `std::bad_alloc`, and for over 2 GiB of names `std::length_error`, "The names of a group are
    /// too many or too long.".
    std::int64_t add(std::string_view name);

    /// The place of the name, or `kNone`.
    std::int64_t find(std::string_view name) const { return find(name, hashOf(name)); }

    /// Takes out the name at `index`; those behind it move up.
    void remove(std::int64_t index);

    void clear();

    std::int64_t size() const { return static_cast<std::int64_t>(hashes_.size()); }
    std::string_view operator[](std::int64_t index) const;

    /// All names as `TextRecord`s, in order.
    std::string_view records() const { return {text_.data(), text_.size()}; }

    /// Where each name's text begins in the records, and its `nameHashOf`.
    const std::uint32_t* offsets() const { return offsets_.data(); }
    const std::uint32_t* hashes() const { return hashes_.data(); }

private:
    static std::uint32_t hashOf(std::string_view name);
    std::int64_t find(std::string_view name, std::uint32_t hash) const;
    void append(std::string_view name, std::uint32_t hash);
    void indexAll(std::size_t slots);

    boost::container::small_vector<char, 384> text_;
    boost::container::small_vector<std::uint32_t, 24> offsets_;
    boost::container::small_vector<std::uint32_t, 24> hashes_;
    boost::container::small_vector<std::uint32_t, 1> slots_;  ///< A `NameIndex`, for long lists.
};

}  // namespace Sylvar3::internal::OvAttribute::Embedded
