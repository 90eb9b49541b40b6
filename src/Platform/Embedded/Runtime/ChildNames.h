// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string_view>

namespace Sylvar3::internal::OvAttribute::Embedded {
class Block;
struct DataValue;
}  // namespace Sylvar3::internal::OvAttribute::Embedded

namespace Sylvar3::internal::OvSylvar::Embedded {

/// How to find a location's child by name: over the texts of its "pc", which it borrows, with a
/// hash index behind it for long lists. Lies in a page of the store, in one piece. Immutable.
struct ChildNames {
    std::uint32_t count;
    std::uint32_t indexSlots;
    const char* const* texts;

    std::string_view operator[](std::uint32_t place) const;

    /// The place of a name; -1 when it is not there. Looks at `hint` first, which may be out of
    /// range.
    std::int64_t find(std::string_view name, std::uint32_t hint) const;

    /// Makes it in the block of the list of names, which has one sample. Throws `std::bad_alloc`.
    static const ChildNames* make(OvAttribute::Embedded::Block& block,
                                  const OvAttribute::Embedded::DataValue& list);

private:
    std::int64_t search(std::string_view name) const;
    std::uint32_t* index() { return reinterpret_cast<std::uint32_t*>(this + 1); }
    const std::uint32_t* index() const { return reinterpret_cast<const std::uint32_t*>(this + 1); }
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
