// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/AttributeEdit.h"

#include <cstddef>
#include <memory>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace Values = OvAttribute::Embedded;

AttributeEdit::AttributeEdit(const Location& location) {
    if (location.exists()) {
        *this = AttributeEdit(*location.attributes());
    }
}

AttributeEdit::AttributeEdit(const GroupValue& group)
    : shape_(group.shape), values_(group.begin(), group.end()) {}

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
    return shape_ ? shape_->find(name) : names_.find(name);
}

void AttributeEdit::takeNames() {
    for (std::int64_t i = 0; shape_ && i < shape_->size(); ++i) {
        names_.add(shape_->name(i));
    }
    shape_ = nullptr;
}

Values::GroupValue* AttributeEdit::write(LocationWriter& out, bool inherits) const {
    boost::container::small_vector<Value*, 24> kept;
    for (Value* const value : values_) {
        kept.push_back(value ? out.keep(*value) : nullptr);
    }
    if (shape_) {
        return out.addGroup(*shape_, kept.data(), inherits);
    }
    const auto letGo = [](const Values::Shape* shape) { shape->release(); };
    const std::unique_ptr<const Values::Shape, decltype(letGo)> shape(Values::Shape::of(names_),
                                                                      letGo);
    return out.addGroup(*shape, kept.data(), inherits);
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
