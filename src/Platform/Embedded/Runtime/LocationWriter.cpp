// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/LocationWriter.h"

#include "Platform/Embedded/Attributes/Values/NameList.h"
#include "Platform/Embedded/Attributes/Values/TextRecords.h"
#include "Platform/Support/OnceBuilt.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace Values = OvAttribute::Embedded;

namespace {

/// The names of a location's group, for the life of the process.
struct LocationNames {
    const Values::Shape& shape;

    static LocationNames make() {
        Values::NameList names;
        for (const char* const name : {"exists", "pc", "attrs"}) {
            names.add(name);
        }
        return {*Values::Shape::of(names)};
    }
};

const Values::Shape& locationShape() {
    static Support::OnceBuilt<LocationNames> names;
    return names.get(LocationNames::make).shape;
}

}  // namespace

LocationWriter::DataValue* LocationWriter::addData(const Values::DataShape& shape) {
    return Values::newDataValue(&page(), shape);
}

Values::Value* LocationWriter::addInt(std::int32_t value) {
    DataValue* const data = addData(Values::DataShape{OV_ATTRIBUTE_INT});
    *static_cast<std::int32_t*>(data->values()) = value;
    return data;
}

Values::Value* LocationWriter::addFloat(float value) {
    DataValue* const data = addData(Values::DataShape{OV_ATTRIBUTE_FLOAT});
    *static_cast<float*>(data->values()) = value;
    return data;
}

Values::Value* LocationWriter::addDouble(double value) {
    DataValue* const data = addData(Values::DataShape{OV_ATTRIBUTE_DOUBLE});
    *static_cast<double*>(data->values()) = value;
    return data;
}

Values::Value* LocationWriter::addString(std::string_view text) {
    Values::DataShape shape{OV_ATTRIBUTE_STRING};
    shape.textBytes = text.size() + Values::TextRecord::kExtraBytes;
    DataValue* const data = addData(shape);
    Values::StringWriter(*data).write(text);
    return data;
}

Values::Value* LocationWriter::addStrings(const std::vector<std::string_view>& texts) {
    Values::DataShape shape{OV_ATTRIBUTE_STRING};
    shape.valueCount = static_cast<std::int64_t>(texts.size());
    for (const std::string_view text : texts) {
        shape.textBytes += text.size() + Values::TextRecord::kExtraBytes;
    }
    DataValue* const data = addData(shape);
    Values::StringWriter writer(*data);
    for (const std::string_view text : texts) {
        writer.write(text);
    }
    return data;
}

Values::GroupValue* LocationWriter::addGroup(const Shape& shape,
                                             Value* const* children,
                                             bool inherits) {
    GroupValue* const group = Values::newGroupValue(page(), page().keep(shape), inherits);
    std::copy_n(children, shape.size(), group->begin());
    return group;
}

void LocationWriter::pass(const Location& location) {
    if (!location.exists()) {
        return setAbsent();
    }
    group_ = static_cast<GroupValue*>(keep(*location.group()));
    names_ = &location.names();
}

void LocationWriter::setChildren(const std::vector<std::string_view>& names) {
    if (!names.empty()) {
        children_ = addStrings(names);
        names_ = ChildNames::make(page(), static_cast<const DataValue&>(*children_));
    }
}

void LocationWriter::keepChildren(DataValue* names) {
    const bool hasNames = names && names->valueCount != 0;
    children_ = hasNames ? keep(*names) : nullptr;
    names_ = hasNames ? ChildNames::make(page(), *names) : nullptr;
}

void LocationWriter::setChildrenOf(const Location& location) {
    children_ = keep(*location.children());
    names_ = &location.names();
    keep(*location.group());
}

Node* LocationWriter::finish(std::uint32_t opType, const std::vector<ForeignRead>& reads) {
    if (isAbsent_) {
        return nullptr;
    }
    Node* const node = room<Node>(1);
    node->location = group_ ? group_ : makeGroup();
    node->names = names_ ? names_ : page().noChildNames();
    node->slots = makeSlots(node->names->count);
    node->page = &page();
    node->reads = copyReads(reads);
    node->readCount = static_cast<std::uint32_t>(reads.size());
    node->opType = opType;
    node->slot = nullptr;
    node->nextInPage = page().nodes;
    page().nodes = node;
    return node;
}

Values::GroupValue* LocationWriter::makeGroup() {
    Value* children[3] = {};
    children[Location::kExists] = page().existsValue();
    children[Location::kChildren] = children_ ? children_ : page().noChildrenValue();
    children[Location::kAttributes] = attributes_ ? attributes_ : page().noAttributesValue();
    GroupValue* const group = Values::newGroupValue(page(), locationShape(), false);
    std::copy_n(children, 3, group->begin());
    return group;
}

template <class T>
T* LocationWriter::room(std::size_t count) {
    std::uint32_t toOwner = 0;
    auto* const things = static_cast<T*>(page().allocate(0, count * sizeof(T), toOwner));
    std::uninitialized_value_construct_n(things, count);
    return things;
}

Slot* LocationWriter::makeSlots(std::uint32_t count) {
    return count == 0 ? nullptr : room<Slot>(count);
}

const ForeignRead* LocationWriter::copyReads(const std::vector<ForeignRead>& reads) {
    if (reads.empty()) {
        return nullptr;
    }
    auto* const copies = room<ForeignRead>(reads.size());
    for (std::size_t i = 0; i < reads.size(); ++i) {
        char* const path = room<char>(reads[i].pathLength);
        std::memcpy(path, reads[i].path, reads[i].pathLength);
        copies[i] = {reads[i].op, path, reads[i].pathLength};
    }
    return copies;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
