// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Forms/GroupStack.h"

#include "Platform/Embedded/Attributes/Values/BlockBuilder.h"

#include <cstring>
#include <limits>
#include <stdexcept>

namespace Sylvar3::internal::OvAttribute::Embedded {

namespace {

/// Stands in front of a name whose length does not fit one byte.
constexpr unsigned char kLong = 0xFF;

}  // namespace

void GroupStack::open() {
    outer_.push_back(inner_);
    inner_ = Extent{0, 0, 0};
}

void GroupStack::name(std::string_view name) {
    constexpr std::size_t kMost = std::numeric_limits<std::int32_t>::max();
    const bool isLong = name.size() >= kLong;
    const std::size_t bytes = name.size() + (isLong ? 1 + sizeof(std::uint32_t) : 1);
    if (bytes > kMost - inner_.nameBytes) {
        throw std::length_error("The names of a group are too many or too long.");
    }
    names_.push_back(static_cast<char>(isLong ? kLong : name.size()));
    if (isLong) {
        const auto length = static_cast<std::uint32_t>(name.size());
        const char* const at = reinterpret_cast<const char*>(&length);
        names_.insert(names_.end(), at, at + sizeof length);
    }
    names_.insert(names_.end(), name.begin(), name.end());
    inner_.nameBytes = (inner_.nameBytes + static_cast<std::uint32_t>(bytes)) & 0x7FFFFFFF;
}

void GroupStack::add(Value* child) {
    children_.push_back(child);
    ++inner_.children;
}

Value* GroupStack::close() {
    Value** const children = children_.data() + (children_.size() - inner_.children);
    gather(children);
    dropNames();
    checkAllowance();
    Value* const group = builder_.addGroup(list_, children, inner_.inherits != 0);
    children_.resize(children_.size() - inner_.children);
    inner_ = outer_.back();
    outer_.pop_back();
    return group;
}

/// Lists the names of the innermost group, and puts each child at the place of its name.
void GroupStack::gather(Value** children) {
    list_.clear();
    std::size_t at = names_.size() - inner_.nameBytes;
    for (std::uint32_t i = 0; i < inner_.children; ++i) {
        children[list_.add(takeName(at))] = children[i];
    }
}

/// Gives the memory of very many names back before the group asks for its own.
void GroupStack::dropNames() {
    constexpr std::size_t kMany = std::size_t{64} * 1024;
    names_.resize(names_.size() - inner_.nameBytes);
    if (inner_.nameBytes > kMany && names_.size() < names_.capacity() / 4) {
        names_.shrink_to_fit();
    }
}

void GroupStack::checkAllowance() const {
    constexpr std::size_t kBytesOfLevel = 24;  // here and in the parser
    constexpr std::size_t kBytesOfName = 48;   // in the list and in the shape to be
    const std::size_t bytes = builder_.bytes() + outer_.capacity() * kBytesOfLevel +
                              children_.capacity() * sizeof(Value*) + names_.capacity() +
                              list_.records().size() * 2 +
                              static_cast<std::size_t>(list_.size()) * kBytesOfName;
    if (bytes > allowance_) {
        throw std::length_error(
            "The groups need too much memory: too many have short names of their own.");
    }
}

std::string_view GroupStack::takeName(std::size_t& at) const {
    std::uint32_t length = static_cast<unsigned char>(names_[at++]);
    if (length == kLong) {
        std::memcpy(&length, names_.data() + at, sizeof length);
        at += sizeof length;
    }
    const std::string_view name(names_.data() + at, length);
    at += length;
    return name;
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
