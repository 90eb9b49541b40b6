// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Values/NameList.h"

#include "Platform/Embedded/Attributes/Values/Hashing.h"
#include "Platform/Embedded/Attributes/Values/NameIndex.h"
#include "Platform/Embedded/Attributes/Values/TextRecords.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace Sylvar3::internal::OvAttribute::Embedded {

std::uint32_t NameList::hashOf(std::string_view name) {
    return nameHashOf(name);
}

std::string_view NameList::operator[](std::int64_t index) const {
    return TextRecord::at(text_.data() + offsets_[static_cast<std::size_t>(index)]);
}

std::int64_t NameList::add(std::string_view name) {
    const std::uint32_t hash = hashOf(name);
    const std::int64_t known = find(name, hash);
    if (known != kNone) {
        return known;
    }
    append(name, hash);
    return size() - 1;
}

std::int64_t NameList::find(std::string_view name, std::uint32_t hash) const {
    const auto matches = [&](std::size_t place) {
        return hashes_[place] == hash && (*this)[static_cast<std::int64_t>(place)] == name;
    };
    if (!slots_.empty()) {
        return NameIndex::find(slots_.data(), slots_.size(), hash, matches);
    }
    for (std::size_t place = 0; place < hashes_.size(); ++place) {
        if (matches(place)) {
            return static_cast<std::int64_t>(place);
        }
    }
    return kNone;
}

void NameList::append(std::string_view name, std::uint32_t hash) {
    const std::size_t begin = text_.size();
    const std::size_t end = begin + name.size() + TextRecord::kExtraBytes;
    constexpr std::size_t kMost = std::numeric_limits<std::int32_t>::max();
    if (end > kMost || hashes_.size() >= kMost) {
        throw std::length_error("The names of a group are too many or too long.");
    }
    text_.resize(end, boost::container::default_init);
    TextRecord::write(text_.data() + begin, name);
    offsets_.push_back(static_cast<std::uint32_t>(begin + sizeof(std::uint32_t)));
    hashes_.push_back(hash);
    if (NameIndex::slotsFor(hashes_.size()) != slots_.size()) {
        indexAll(NameIndex::slotsFor(hashes_.size()));
    } else if (!slots_.empty()) {
        NameIndex::insert(
            slots_.data(), slots_.size(), hash, static_cast<std::uint32_t>(hashes_.size() - 1));
    }
}

void NameList::indexAll(std::size_t slots) {
    slots_.assign(slots, 0);
    for (std::size_t place = 0; slots != 0 && place < hashes_.size(); ++place) {
        NameIndex::insert(slots_.data(), slots, hashes_[place], static_cast<std::uint32_t>(place));
    }
}

void NameList::remove(std::int64_t index) {
    NameList kept;
    for (std::int64_t i = 0; i < size(); ++i) {
        if (i != index) {
            kept.append((*this)[i], hashes_[static_cast<std::size_t>(i)]);
        }
    }
    *this = std::move(kept);
}

void NameList::clear() {
    text_.clear();
    offsets_.clear();
    hashes_.clear();
    slots_.clear();
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
