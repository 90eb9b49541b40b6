// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/AttributeEdit.h"

#include <memory>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace Values = OvAttribute::Embedded;

AttributeEdit::AttributeEdit(const Location& location) {
    if (location.exists()) {
        *this = AttributeEdit(*location.attributes());
    }
}

AttributeEdit::AttributeEdit(const GroupValue& group) {
    for (std::int64_t i = 0; i < group.size(); ++i) {
        set(group.shape->name(i), group[i]);
    }
}

void AttributeEdit::set(std::string_view name, Value* value) {
    const auto place = static_cast<std::size_t>(names_.add(name));
    if (place == values_.size()) {
        values_.push_back(nullptr);
    }
    values_[place] = value;
}

Values::Value* AttributeEdit::find(std::string_view name) const {
    const std::int64_t place = names_.find(name);
    return place < 0 ? nullptr : values_[static_cast<std::size_t>(place)];
}

bool AttributeEdit::has(std::string_view name) const {
    return names_.find(name) >= 0;
}

Values::GroupValue* AttributeEdit::write(LocationWriter& out, bool inherits) const {
    boost::container::small_vector<Value*, 24> kept;
    for (Value* const value : values_) {
        kept.push_back(value ? out.keep(*value) : nullptr);
    }
    const auto letGo = [](const Values::Shape* shape) { shape->release(); };
    const std::unique_ptr<const Values::Shape, decltype(letGo)> shape(Values::Shape::of(names_),
                                                                      letGo);
    return out.addGroup(*shape, kept.data(), inherits);
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
