// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Arguments.h"
#include "Platform/Embedded/Ops/OpTypes.h"
#include "Platform/Embedded/Ops/Patterns/PathPatterns.h"
#include "Platform/Embedded/Runtime/Cook.h"
#include "Platform/Support/OnceBuilt.h"

#include <string_view>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::GroupAttribute;

namespace {

class IsolateOp final : public OpBody {
public:
    explicit IsolateOp(PathPatterns paths) : paths_(std::move(paths)) {}

    void cook(Cook& cook, LocationWriter& out) const override {
        const std::string_view path = cook.path();
        if (!path.empty() && !paths_.isWithinMatch(path) && !paths_.canMatchBelow(path)) {
            return out.setAbsent();
        }
        out.pass(cook.input(0));
    }

private:
    PathPatterns paths_;
};

class IsolateOpType final : public OpType {
public:
    const OpSchema& schema() const override { return schema_; }

    std::unique_ptr<const OpBody> make(const GroupAttribute& group,
                                       std::size_t /*inputCount*/,
                                       const std::string& /*place*/) const override {
        const Arguments arguments(schema_, group);
        return std::make_unique<IsolateOp>(PathPatterns(arguments.getStrings("paths")));
    }

private:
    const OpSchema schema_ = {
        "isolate",
        "Keeps the locations that its patterns match, with all below them, and the way to them.",
        "What `!` takes away goes with all below it, but for what is matched there again: "
        "`/root/**`, `!/root/c1/**` keeps all but /root/c1. Of the locations above one, and it "
        "itself, the nearest for which a pattern says something decides.\n\n"
        "It does not search: a location stays when its patterns could match one below it, whether "
        "there is one or not. What is on the way keeps its attributes. The names of removed "
        "locations stay among the potential children of the location above.",
        1,
        1,
        {{"paths", "strings", nullptr, "Patterns for the paths of the locations to keep."}},
    };
};

}  // namespace

const OpType& isolateOpType() {
    static Support::OnceBuilt<IsolateOpType> type;
    return type.get();
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
