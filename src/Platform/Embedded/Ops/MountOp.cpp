// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Arguments.h"
#include "Platform/Embedded/Ops/Locations/LocationChange.h"
#include "Platform/Embedded/Ops/Locations/MountTable.h"
#include "Platform/Embedded/Ops/OpTypes.h"
#include "Platform/Embedded/Runtime/Cook.h"
#include "Platform/Embedded/Runtime/MountPath.h"
#include "Platform/Support/OnceBuilt.h"

#include <string>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::GroupAttribute;

namespace {

constexpr const char* kTop = "/root";

/// Input `n` is the scene `n` of the table; the first one, input 0, has what no other has.
class MountOp final : public OpBody {
public:
    explicit MountOp(MountTable mounts) : mounts_(std::move(mounts)) {}

    void cook(Cook& cook, LocationWriter& out) const override {
        const MountTable::Finding finding = mounts_.find(cook.path());
        const Location location = finding.scene == MountTable::kNone
                                      ? cook.input(0)
                                      : cook.input(finding.scene, kTop + std::string(finding.rest));
        if (finding.names.empty()) {
            return out.pass(location);
        }
        writeWithChildren(location, finding.names, out);
    }

private:
    MountTable mounts_;
};

class MountOpType final : public OpType {
public:
    const OpSchema& schema() const override { return schema_; }

    std::unique_ptr<const OpBody> make(const GroupAttribute& group,
                                       std::size_t inputCount,
                                       const std::string& /*place*/) const override {
        const Arguments arguments(schema_, group);
        const std::vector<std::string> paths = arguments.getStrings("at");
        if (paths.size() != inputCount - 1) {
            Arguments::fail("at",
                            "one path for each input behind the first, " +
                                std::to_string(inputCount - 1) + " of them, found " +
                                std::to_string(paths.size()));
        }
        MountTable mounts;
        for (const std::string& path : paths) {
            Arguments::checkPath("at", path);
            mounts.mount(path);
        }
        return std::make_unique<MountOp>(std::move(mounts));
    }

private:
    const OpSchema schema_ = {
        "mount",
        "Puts the scenes of further inputs in the scene of the first.",
        "Each further input's location /root goes to its path, with all below it, in place of what "
        "the first input has there. Locations that are missing on the way are made. Where paths "
        "meet, a later input lies over an earlier one. Below a mounted location nothing is cooked "
        "but the input that has it.",
        2,
        kAnyNumberOfInputs,
        {{"at", "strings", nullptr, "A path for each input behind the first."}},
    };
};

}  // namespace

const OpType& mountOpType() {
    static Support::OnceBuilt<MountOpType> type;
    return type.get();
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
