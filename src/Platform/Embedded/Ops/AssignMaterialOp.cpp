// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Arguments.h"
#include "Platform/Embedded/Ops/Locations/AttributeAssignment.h"
#include "Platform/Embedded/Ops/Locations/LocationChange.h"
#include "Platform/Embedded/Ops/OpTypes.h"
#include "Platform/Embedded/Ops/Patterns/PathPatterns.h"
#include "Platform/Embedded/Runtime/AttributeEdit.h"
#include "Platform/Embedded/Runtime/Cook.h"
#include "Platform/Support/OnceBuilt.h"

#include <string>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::GroupAttribute;
using OvAttribute::Embedded::asGroup;
using OvAttribute::Embedded::GroupValue;

namespace {

constexpr const char* kMaterial = "material";

/// The material is a group, or that of a location of the input.
struct Material {
    GroupAttribute group;
    std::string path;
};

class AssignMaterialOp final : public OpBody {
public:
    AssignMaterialOp(PathPatterns paths, Material material, AssignmentMode mode)
        : paths_(std::move(paths)), material_(std::move(material)), mode_(mode) {}

    void cook(Cook& cook, LocationWriter& out) const override {
        const Location input = cook.input(0);
        if (!input.exists() || !paths_.matches(cook.path())) {
            return out.pass(input);
        }
        AttributeEdit attributes(input);
        if (mode_ == AssignmentMode::IfMissing && attributes.find(kMaterial)) {
            return out.pass(input);
        }
        const Location source = material_.group ? Location() : cook.input(0, material_.path);
        assign(attributes, kMaterial, materialOf(source), mode_, out);
        writeWithAttributes(input, attributes.write(out), out);
    }

private:
    LocationWriter::Value* materialOf(const Location& source) const {
        if (material_.group) {
            return material_.group.handle();
        }
        GroupValue* const material =
            source.exists() ? asGroup(source.attributes()->find(kMaterial)) : nullptr;
        if (!material) {
            Arguments::fail(kMaterial,
                            "a location with a material, found none at " + material_.path);
        }
        return material;
    }

    PathPatterns paths_;
    Material material_;
    AssignmentMode mode_;
};

class AssignMaterialOpType final : public OpType {
public:
    const OpSchema& schema() const override { return schema_; }

    std::unique_ptr<const OpBody> make(const GroupAttribute& group,
                                       std::size_t /*inputCount*/,
                                       const std::string& /*place*/) const override {
        const Arguments arguments(schema_, group);
        Material material{arguments.getGroup(kMaterial), {}};
        if (!material.group) {
            material.path = arguments.getPath(kMaterial, "");
        }
        return std::make_unique<AssignMaterialOp>(PathPatterns(arguments.getStrings("paths")),
                                                  std::move(material),
                                                  assignmentModeOf(arguments));
    }

private:
    const OpSchema schema_ = {
        "assignMaterial",
        "Sets the material of the locations that its patterns match.",
        "Locations below inherit it, so that one at the top of a model is enough. A material that "
        "stands in the arguments is one value that all locations share, as is that of another "
        "location of the input. What later ops do to the location they do to its material: a merge "
        "takes it from the first input that has the location.",
        1,
        1,
        {
            {"paths", "strings", nullptr, "Patterns for the paths of the locations."},
            {kMaterial,
             "group or string",
             nullptr,
             "The material, or the path of a location that has it."},
            assignmentModeSchema(),
        },
    };
};

}  // namespace

const OpType& assignMaterialOpType() {
    static Support::OnceBuilt<AssignMaterialOpType> type;
    return type.get();
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
