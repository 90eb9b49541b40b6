// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Arguments.h"
#include "Platform/Embedded/Ops/Locations/AttributeAssignment.h"
#include "Platform/Embedded/Ops/Locations/LocationChange.h"
#include "Platform/Embedded/Ops/OpTypes.h"
#include "Platform/Embedded/Ops/Patterns/PathPatterns.h"
#include "Platform/Embedded/Runtime/AttributeEdit.h"
#include "Platform/Embedded/Runtime/Cook.h"
#include "Platform/Support/OnceBuilt.h"

#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::GroupAttribute;
using OvAttribute::Embedded::asGroup;
using OvAttribute::Embedded::GroupValue;

namespace {

class SetAttributesOp final : public OpBody {
public:
    SetAttributesOp(PathPatterns paths, GroupAttribute values, AssignmentMode mode)
        : paths_(std::move(paths)), values_(std::move(values)), mode_(mode) {}

    void cook(Cook& cook, LocationWriter& out) const override {
        const Location input = cook.input(0);
        if (!input.exists() || !paths_.matches(cook.path())) {
            return out.pass(input);
        }
        AttributeEdit attributes(input);
        const GroupValue& values = *asGroup(values_.handle());
        for (std::int64_t i = 0; i < values.size(); ++i) {
            assign(attributes, values.shape->name(i), values[i], mode_, out);
        }
        writeWithAttributes(input, attributes.write(out), out);
    }

private:
    PathPatterns paths_;
    GroupAttribute values_;
    AssignmentMode mode_;
};

class SetAttributesOpType final : public OpType {
public:
    const OpSchema& schema() const override { return schema_; }

    std::unique_ptr<const OpBody> make(const GroupAttribute& group,
                                       std::size_t /*inputCount*/,
                                       const std::string& /*place*/) const override {
        const Arguments arguments(schema_, group);
        return std::make_unique<SetAttributesOp>(PathPatterns(arguments.getStrings("paths")),
                                                 arguments.getGroup("values"),
                                                 assignmentModeOf(arguments));
    }

private:
    const OpSchema schema_ = {
        "setAttributes",
        "Sets attributes of the locations that its patterns match.",
        "Locations that no pattern matches are handed on as they are; it makes none. "
        "Names are those of the location's own attributes: a group replaces a whole "
        "group unless the mode is `merge`. A null value hides what was there.",
        1,
        1,
        {
            {"paths", "strings", nullptr, "Patterns for the paths of the locations."},
            {"values", "group", nullptr, "The attributes, by name."},
            assignmentModeSchema(),
        },
    };
};

}  // namespace

const OpType& setAttributesOpType() {
    static Support::OnceBuilt<SetAttributesOpType> type;
    return type.get();
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
