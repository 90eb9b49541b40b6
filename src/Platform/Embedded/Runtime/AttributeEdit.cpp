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
      inherits_(group.inherits()),
      hasNewNames_(false),
      values_(std::as_const(group).begin(), std::as_const(group).end()) {}

void AttributeEdit::set(std::string_view name, Value* value) {
    const std::int64_t place = placeOf(name);
    if (place >= 0) {
        values_[static_cast<std::size_t>(place)] = value;
        return;
    }
    takeNames();
    names_.add(name);
    values_.push_back(value);
}

Values::Value* AttributeEdit::find(std::string_view name) const {
    const std::int64_t place = placeOf(name);
    return place < 0 ? nullptr : values_[static_cast<std::size_t>(place)];
}

bool AttributeEdit::has(std::string_view name) const {
    return placeOf(name) >= 0;
}

std::int64_t AttributeEdit::placeOf(std::string_view name) const {
    return hasNewNames_ ? names_.find(name) : base_->shape->find(name);
}

void AttributeEdit::takeNames() {
    if (hasNewNames_) {
        return;
    }
    for (std::int64_t i = 0; i < base_->size(); ++i) {
        names_.add(base_->shape->name(i));
    }
    hasNewNames_ = true;
}

bool AttributeEdit::isOfBase(std::size_t place) const {
    const auto index = static_cast<std::int64_t>(place);
    return base_ && index < base_->size() && values_[place] == (*base_)[index];
}

bool AttributeEdit::isBase() const {
    return base_ && !hasNewNames_ && inherits_ == base_->inherits() &&
           std::equal(values_.begin(), values_.end(), base_->begin());
}

/// The values of the base are kept with it.
Values::GroupValue* AttributeEdit::write(LocationWriter& out) const {
    if (base_) {
        out.keep(*base_);
    }
    if (isBase()) {
        return base_;
    }
    boost::container::small_vector<Value*, 24> kept;
    for (std::size_t i = 0; i < values_.size(); ++i) {
        Value* const value = values_[i];
        kept.push_back(value && !isOfBase(i) ? out.keep(*value) : value);
    }
    if (!hasNewNames_) {
        return out.addGroup(*base_->shape, kept.data(), inherits_);
    }
    const auto letGo = [](const Values::Shape* shape) { shape->release(); };
    const std::unique_ptr<const Values::Shape, decltype(letGo)> shape(Values::Shape::of(names_),
                                                                      letGo);
    return out.addGroup(*shape, kept.data(), inherits_);
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
