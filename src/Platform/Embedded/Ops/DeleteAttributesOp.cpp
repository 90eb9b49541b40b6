// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Arguments.h"
#include "Platform/Embedded/Ops/Locations/LocationChange.h"
#include "Platform/Embedded/Ops/OpTypes.h"
#include "Platform/Embedded/Ops/Patterns/AttributeNamePatterns.h"
#include "Platform/Embedded/Ops/Patterns/PathPatterns.h"
#include "Platform/Embedded/Runtime/Cook.h"
#include "Platform/Support/OnceBuilt.h"

#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::GroupAttribute;

namespace {

class DeleteAttributesOp final : public OpBody {
public:
    DeleteAttributesOp(PathPatterns paths, AttributeNamePatterns names)
        : paths_(std::move(paths)), names_(std::move(names)) {}

    void cook(Cook& cook, LocationWriter& out) const override {
        const Location input = cook.input(0);
        if (!input.exists() || !paths_.matches(cook.path())) {
            return out.pass(input);
        }
        writeWithAttributes(input, names_.without(*input.attributes(), out), out);
    }

private:
    PathPatterns paths_;
    AttributeNamePatterns names_;
};

class DeleteAttributesOpType final : public OpType {
public:
    const OpSchema& schema() const override { return schema_; }

    std::unique_ptr<const OpBody> make(const GroupAttribute& group,
                                       std::size_t /*inputCount*/,
                                       const std::string& /*place*/) const override {
        const Arguments arguments(schema_, group);
        return std::make_unique<DeleteAttributesOp>(
            PathPatterns(arguments.getStrings("paths")),
            AttributeNamePatterns(arguments.getStrings("names")));
    }

private:
    const OpSchema schema_ = {
        "deleteAttributes",
        "Removes attributes of the locations that its patterns match.",
        "A name with dots reaches into groups: `geometry.st` removes one child of \"geometry\", "
        "whose others stay. Each piece of a name can be a pattern as one name of a path can: "
        "`value*`, `material.nodes.*`; `**` is no more than `*`. A location that has none of them "
        "is handed on as it is.",
        1,
        1,
        {
            {"paths", "strings", nullptr, "Patterns for the paths of the locations."},
            {"names", "strings", nullptr, "The names of the attributes."},
        },
    };
};

}  // namespace

const OpType& deleteAttributesOpType() {
    static Support::OnceBuilt<DeleteAttributesOpType> type;
    return type.get();
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
