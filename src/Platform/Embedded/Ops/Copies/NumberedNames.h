// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/Location.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// Names of copies: a text and a number behind it. Immutable; any thread.
class NumberedNames {
public:
    /// `count` of them, from the number `first` on. Throws `OpError` when they are too long
    /// together.
    NumberedNames(std::string prefix, std::uint32_t first, std::uint32_t count);

    std::uint32_t count() const { return count_; }

    /// One of the copies, and the rest of a path behind its name: "" or "/name/name".
    struct Copy {
        std::size_t place = 0;  ///< From 0.
        std::string_view rest;
    };

    /// The copy, of those below `parent`, at which a path is or below which it is.
    std::optional<Copy> find(std::string_view parent, std::string_view path) const;

    /// All of them, as views of the text, which is replaced.
    std::vector<std::string_view> list(std::string& text) const;

    /// Throws `OpError` when a location that can be absent has a child of one of these names.
    void checkThatNoneIsIn(const Location& location) const;

private:
    /// From 0; -1 when the name is none of them.
    std::int64_t placeOf(std::string_view name) const;

    std::string prefix_;
    std::uint32_t first_;
    std::uint32_t count_;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
