// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/ChildNames.h"

#include "Platform/Embedded/Attributes/Values/Block.h"
#include "Platform/Embedded/Attributes/Values/DataValue.h"
#include "Platform/Embedded/Attributes/Values/Hashing.h"
#include "Platform/Embedded/Attributes/Values/NameIndex.h"
#include "Platform/Embedded/Attributes/Values/TextRecords.h"

#include <algorithm>
#include <new>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace Values = OvAttribute::Embedded;

std::string_view ChildNames::operator[](std::uint32_t place) const {
    return Values::TextRecord::at(texts[place]);
}

std::int64_t ChildNames::find(std::string_view name, std::uint32_t hint) const {
    return hint < count && (*this)[hint] == name ? hint : search(name);
}

std::int64_t ChildNames::search(std::string_view name) const {
    const auto matches = [&](std::uint32_t place) { return (*this)[place] == name; };
    if (indexSlots != 0) {
        return Values::NameIndex::find(index(), indexSlots, Values::nameHashOf(name), matches);
    }
    for (std::uint32_t place = 0; place < count; ++place) {
        if (matches(place)) {
            return place;
        }
    }
    return -1;
}

const ChildNames* ChildNames::make(Values::Block& block, const Values::DataValue& list) {
    const auto count = static_cast<std::size_t>(list.valueCount);
    const std::size_t slots = Values::NameIndex::slotsFor(count);
    std::uint32_t toOwner = 0;
    void* const memory =
        block.allocate(0, sizeof(ChildNames) + slots * sizeof(std::uint32_t), toOwner);
    auto* const names = new (memory) ChildNames{static_cast<std::uint32_t>(count),
                                                static_cast<std::uint32_t>(slots),
                                                list.valuesAs<const char*>()};
    std::fill_n(names->index(), slots, 0U);
    for (std::uint32_t place = 0; slots != 0 && place < count; ++place) {
        Values::NameIndex::insert(
            names->index(), slots, Values::nameHashOf((*names)[place]), place);
    }
    return names;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
