// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Arguments.h"
#include "Platform/Embedded/Ops/OpTypes.h"
#include "Platform/Embedded/Ops/Patterns/PathPatterns.h"
#include "Platform/Embedded/Runtime/Cook.h"
#include "Platform/Support/OnceBuilt.h"

#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::GroupAttribute;

namespace {

class PruneOp final : public OpBody {
public:
    explicit PruneOp(PathPatterns paths) : paths_(std::move(paths)) {}

    /// What is below a location that is not there need not be looked at.
    void cook(Cook& cook, LocationWriter& out) const override {
        if (paths_.matches(cook.path())) {
            return out.setAbsent();
        }
        out.pass(cook.input(0));
    }

private:
    PathPatterns paths_;
};

class PruneOpType final : public OpType {
public:
    const OpSchema& schema() const override { return schema_; }

    std::unique_ptr<const OpBody> make(const GroupAttribute& group,
                                       std::size_t /*inputCount*/,
                                       const std::string& /*place*/) const override {
        const Arguments arguments(schema_, group);
        return std::make_unique<PruneOp>(PathPatterns(arguments.getStrings("paths")));
    }

private:
    const OpSchema schema_ = {
        "prune",
        "Removes the locations that its patterns match, with all below them.",
        "The names of removed locations stay among the potential children of the location above; "
        "a potential child need not exist. Nothing of what is removed is cooked.",
        1,
        1,
        {{"paths", "strings", nullptr, "Patterns for the paths of the locations to remove."}},
    };
};

}  // namespace

const OpType& pruneOpType() {
    static Support::OnceBuilt<PruneOpType> type;
    return type.get();
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
