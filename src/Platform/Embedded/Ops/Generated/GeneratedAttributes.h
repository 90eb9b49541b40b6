// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/GroupAttribute.h>

#include "Platform/Embedded/Attributes/Values/Shape.h"
#include "Platform/Embedded/Ops/Generated/GeneratedTree.h"
#include "Platform/Embedded/Runtime/LocationWriter.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// The attributes of a generated scene's locations: "type", "xform" with a "matrix" that sets
/// siblings beside one another, "bound" (six doubles: least and greatest x, y, z), and small ones,
/// "value0", "value1", ..., in turn an int, a float, a double and a string; with materials also
/// "material", each of them in turn. Immutable; any thread.
class GeneratedAttributes {
public:
    using GroupValue = LocationWriter::GroupValue;
    using Value = LocationWriter::Value;

    GeneratedAttributes(std::int32_t seed,
                        std::int32_t count,
                        std::int32_t motionSamples,
                        std::int32_t materials);

    GroupValue* write(const GeneratedTree::Place& place, LocationWriter& out) const;

private:
    struct LetGo {
        void operator()(const OvAttribute::Embedded::Shape* shape) const { shape->release(); }
    };
    using HeldShape = std::unique_ptr<const OvAttribute::Embedded::Shape, LetGo>;

    Value* transform(const GeneratedTree::Place& place, LocationWriter& out) const;
    Value* bound(std::uint64_t random, LocationWriter& out) const;
    static Value* small(std::size_t index, std::uint64_t random, LocationWriter& out);

    std::uint64_t seed_;
    std::size_t count_;
    std::vector<float> times_;
    std::vector<OvAttribute::GroupAttribute> materials_;
    HeldShape shape_;
    HeldShape transformShape_;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
