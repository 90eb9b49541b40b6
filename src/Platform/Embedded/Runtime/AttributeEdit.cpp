// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/AttributeEdit.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace Values = OvAttribute::Embedded;

AttributeEdit::AttributeEdit(const Location& location) {
    if (location.exists()) {
        *this = AttributeEdit(*location.attributes());
    }
}

AttributeEdit::AttributeEdit(GroupValue& group)
    : base_(&group),
      shape_(group.shape),
      inherits_(group.inherits()),
      values_(std::as_const(group).begin(), std::as_const(group).end()) {}

void AttributeEdit::set(std::string_view name, Value* value) {
    std::int64_t place = placeOf(name);
    if (place < 0) {
        takeNames();
        place = names_.add(name);
        values_.push_back(nullptr);
    }
    const auto index = static_cast<std::size_t>(place);
    values_[index] = value;
    if (isGone(index)) {
        isGone_[index] = false;
    }
}

void AttributeEdit::remove(std::string_view name) {
    const std::int64_t place = placeOf(name);
    if (place >= 0) {
        isGone_.resize(values_.size(), false);
        isGone_[static_cast<std::size_t>(place)] = true;
    }
}

Values::Value* AttributeEdit::find(std::string_view name) const {
    return has(name) ? values_[static_cast<std::size_t>(placeOf(name))] : nullptr;
}

bool AttributeEdit::has(std::string_view name) const {
    const std::int64_t place = placeOf(name);
    return place >= 0 && !isGone(static_cast<std::size_t>(place));
}

std::int64_t AttributeEdit::placeOf(std::string_view name) const {
    return shape_ ? shape_->find(name) : names_.find(name);
}

std::string_view AttributeEdit::nameAt(std::size_t place) const {
    const auto index = static_cast<std::int64_t>(place);
    return shape_ ? shape_->name(index) : names_[index];
}

bool AttributeEdit::isGone(std::size_t place) const {
    return place < isGone_.size() && isGone_[place];
}

void AttributeEdit::takeNames() {
    for (std::int64_t i = 0; shape_ && i < shape_->size(); ++i) {
        names_.add(shape_->name(i));
    }
    shape_ = nullptr;
}

bool AttributeEdit::isOfBase(std::size_t place) const {
    const auto index = static_cast<std::int64_t>(place);
    return base_ && index < base_->size() && values_[place] == (*base_)[index];
}

bool AttributeEdit::isBase() const {
    return base_ && shape_ && isGone_.empty() && inherits_ == base_->inherits() &&
           std::equal(values_.begin(), values_.end(), base_->begin());
}

/// The values of the base are kept with it.
Values::GroupValue* AttributeEdit::write(LocationWriter& out) const {
    if (base_) {
        out.keep(*base_);
    }
    return isBase() ? base_ : writeAll(out);
}

Values::GroupValue* AttributeEdit::writeAll(LocationWriter& out) const {
    const bool hasAll = isGone_.empty();
    boost::container::small_vector<Value*, 24> kept;
    Values::NameList rest;
    for (std::size_t i = 0; i < values_.size(); ++i) {
        if (isGone(i)) {
            continue;
        }
        Value* const value = values_[i];
        kept.push_back(value && !isOfBase(i) ? out.keep(*value) : value);
        if (!hasAll) {
            rest.add(nameAt(i));
        }
    }
    if (hasAll && shape_) {
        return out.addGroup(*shape_, kept.data(), inherits_);
    }
    const auto letGo = [](const Values::Shape* shape) { shape->release(); };
    const std::unique_ptr<const Values::Shape, decltype(letGo)> shape(
        Values::Shape::of(hasAll ? names_ : rest), letGo);
    return out.addGroup(*shape, kept.data(), inherits_);
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
