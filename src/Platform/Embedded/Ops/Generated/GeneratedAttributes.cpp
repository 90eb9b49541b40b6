// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Generated/GeneratedAttributes.h"

#include "Platform/Embedded/Attributes/Values/NameList.h"
#include "Platform/Embedded/Ops/Generated/GeneratedMaterials.h"
#include "Platform/Embedded/Ops/Generated/RandomNumber.h"

#include <boost/container/small_vector.hpp>

#include <array>
#include <charconv>
#include <string>
#include <string_view>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace Values = OvAttribute::Embedded;

namespace {

constexpr std::size_t kFixedAttributes = 3;
constexpr int kMatrix = 16;
constexpr int kBound = 6;
constexpr std::uint64_t kColumns = 8;  ///< Siblings stand side by side in rows of so many.

Values::DataShape doubles(int count) {
    Values::DataShape shape{OV_ATTRIBUTE_DOUBLE};
    shape.tupleSize = count;
    shape.valueCount = count;
    return shape;
}

const Values::Shape* shapeOf(std::size_t smallCount, bool hasMaterial) {
    Values::NameList names;
    for (const char* const name : {"type", "xform", "bound"}) {
        names.add(name);
    }
    for (std::size_t i = 0; i < smallCount; ++i) {
        names.add("value" + std::to_string(i));
    }
    if (hasMaterial) {
        names.add("material");
    }
    return Values::Shape::of(names);
}

const Values::Shape* transformShape() {
    Values::NameList names;
    names.add("matrix");
    return Values::Shape::of(names);
}

}  // namespace

GeneratedAttributes::GeneratedAttributes(std::int32_t seed,
                                         std::int32_t count,
                                         std::int32_t motionSamples,
                                         std::int32_t materials)
    : seed_(mixed(static_cast<std::uint64_t>(std::int64_t{seed}))),
      count_(static_cast<std::size_t>(count)),
      materials_(generatedMaterials(materials, seed_)),
      shape_(shapeOf(count_, materials > 0)),
      transformShape_(transformShape()) {
    for (std::int32_t i = 0; motionSamples > 1 && i < motionSamples; ++i) {
        times_.push_back(static_cast<float>(i) / static_cast<float>(motionSamples - 1));
    }
}

Values::GroupValue* GeneratedAttributes::write(const GeneratedTree::Place& place,
                                               LocationWriter& out) const {
    const std::uint64_t random = mixed(seed_ ^ place.number);
    boost::container::small_vector<Value*, 16> values(kFixedAttributes + count_ +
                                                      (materials_.empty() ? 0 : 1));
    values[0] = out.addString("group");
    values[1] = transform(place, out);
    values[2] = bound(random, out);
    for (std::size_t i = 0; i < count_; ++i) {
        values[kFixedAttributes + i] = small(i, mixed(random + i), out);
    }
    if (!materials_.empty()) {
        values.back() = out.keep(*materials_[place.number % materials_.size()].handle());
    }
    return out.addGroup(*shape_, values.data(), false);
}

Values::Value* GeneratedAttributes::transform(const GeneratedTree::Place& place,
                                              LocationWriter& out) const {
    Values::DataShape shape = doubles(kMatrix);
    shape.sampleCount = times_.empty() ? 1 : static_cast<std::int64_t>(times_.size());
    shape.times = times_.empty() ? nullptr : times_.data();
    Values::DataValue* const matrix = out.addData(shape);
    const std::uint64_t row = place.sibling / kColumns;
    const std::uint64_t column = place.sibling % kColumns;
    auto* value = static_cast<double*>(matrix->values());
    for (std::int64_t sample = 0; sample < shape.sampleCount; ++sample) {
        const double time = times_.empty() ? 0 : times_[static_cast<std::size_t>(sample)];
        const auto x = static_cast<double>(column);
        const auto z = static_cast<double>(row);
        const std::array<double, kMatrix> all = {
            1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, 1, z + time, 1};
        value = std::copy(all.begin(), all.end(), value);
    }
    Value* const children[] = {matrix};
    return out.addGroup(*transformShape_, children, false);
}

Values::Value* GeneratedAttributes::bound(std::uint64_t random, LocationWriter& out) const {
    Values::DataValue* const bound = out.addData(doubles(kBound));
    auto* value = static_cast<double*>(bound->values());
    for (int axis = 0; axis < 3; ++axis) {
        random = mixed(random);
        const double reach = 0.5 + unit(random);
        *value++ = -reach;
        *value++ = reach;
    }
    return bound;
}

Values::Value* GeneratedAttributes::small(std::size_t index,
                                          std::uint64_t random,
                                          LocationWriter& out) {
    switch (index % 4) {
        case 0:
            return out.addInt(static_cast<std::int32_t>(random));
        case 1:
            return out.addFloat(static_cast<float>(unit(random)));
        case 2:
            return out.addDouble(unit(random));
        default: {
            std::array<char, 8> text{};
            const char* const end =
                std::to_chars(
                    text.begin(), text.end(), static_cast<std::uint32_t>(random) & 0xffffff, 16)
                    .ptr;
            return out.addString({text.data(), static_cast<std::size_t>(end - text.data())});
        }
    }
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
