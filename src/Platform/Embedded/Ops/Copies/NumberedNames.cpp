// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Copies/NumberedNames.h"

#include "Platform/Embedded/Runtime/Op.h"

#include <charconv>
#include <limits>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace {

constexpr std::size_t kMostDigits = std::numeric_limits<std::uint32_t>::digits10 + 1;

constexpr std::size_t kMostBytes = 1 << 28;

}  // namespace

NumberedNames::NumberedNames(std::string prefix, std::uint32_t first, std::uint32_t count)
    : prefix_(std::move(prefix)), first_(first), count_(count) {
    if ((prefix_.size() + kMostDigits) * count_ > kMostBytes) {
        throw OpError("the names of " + std::to_string(count_) + " copies are longer than " +
                      std::to_string(kMostBytes) + " bytes together");
    }
}

std::optional<NumberedNames::Copy> NumberedNames::find(std::string_view parent,
                                                       std::string_view path) const {
    const bool isBelow = path.size() > parent.size() && path.substr(0, parent.size()) == parent &&
                         path[parent.size()] == '/';
    if (!isBelow) {
        return std::nullopt;
    }
    path.remove_prefix(parent.size() + 1);
    const std::string_view name = path.substr(0, path.find('/'));
    const std::int64_t place = placeOf(name);
    if (place < 0) {
        return std::nullopt;
    }
    return Copy{static_cast<std::size_t>(place), path.substr(name.size())};
}

std::int64_t NumberedNames::placeOf(std::string_view name) const {
    if (name.substr(0, prefix_.size()) != prefix_) {
        return -1;
    }
    name.remove_prefix(prefix_.size());
    std::uint32_t number = 0;
    const char* const end = name.data() + name.size();
    const auto read = std::from_chars(name.data(), end, number);
    const bool hasMoreDigits = name.size() > 1 && name.front() == '0';
    if (read.ec != std::errc() || read.ptr != end || hasMoreDigits || number < first_ ||
        number - first_ >= count_) {
        return -1;
    }
    return number - first_;
}

std::vector<std::string_view> NumberedNames::list(std::string& text) const {
    text.clear();
    text.reserve((prefix_.size() + kMostDigits) * count_);
    std::vector<std::string_view> names;
    names.reserve(count_);
    for (std::uint32_t i = 0; i < count_; ++i) {
        const std::size_t begin = text.size();
        text.append(prefix_).append(std::to_string(first_ + i));
        names.emplace_back(text.data() + begin, text.size() - begin);
    }
    return names;
}

void NumberedNames::checkThatNoneIsIn(const Location& location) const {
    for (std::uint32_t i = 0; location.exists() && i < location.names().count; ++i) {
        const std::string_view name = location.names()[i];
        if (placeOf(name) >= 0) {
            throw OpError("there is a child \"" + std::string(name) +
                          "\" already, which has the name of a copy");
        }
    }
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
