// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Arguments.h"
#include "Platform/Embedded/Ops/Copies/InstanceTransforms.h"
#include "Platform/Embedded/Ops/Copies/NumberedNames.h"
#include "Platform/Embedded/Ops/Locations/LocationChange.h"
#include "Platform/Embedded/Ops/OpTypes.h"
#include "Platform/Embedded/Runtime/Cook.h"
#include "Platform/Embedded/Runtime/MountPath.h"
#include "Platform/Support/OnceBuilt.h"

#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::GroupAttribute;

namespace {

/// Which prototype each instance is a copy of.
class PrototypeChoice {
public:
    PrototypeChoice(const Arguments& arguments, std::size_t instanceCount)
        : prototypes_(arguments.getStrings("prototypes")),
          indices_(arguments.getNumbers("protoIndices", 1, true)) {
        if (prototypes_.empty()) {
            Arguments::fail("prototypes", "one path or more, found none");
        }
        for (const std::string& path : prototypes_) {
            Arguments::checkPath("prototypes", path);
        }
        if (arguments.has("protoIndices")) {
            checkIndices(instanceCount);
        }
    }

    const std::string& operator[](std::size_t instance) const {
        return prototypes_[indices_.isEmpty() ? instance % prototypes_.size()
                                              : static_cast<std::size_t>(indices_.at(0, instance))];
    }

private:
    void checkIndices(std::size_t instanceCount) const {
        if (indices_.sampleCount() > 1) {
            Arguments::fail("protoIndices",
                            "one sample, found " + std::to_string(indices_.sampleCount()));
        }
        if (indices_.size() != instanceCount) {
            Arguments::fail("protoIndices",
                            "one for each of the " + std::to_string(instanceCount) +
                                " instances, found " + std::to_string(indices_.size()));
        }
        const auto end = static_cast<double>(prototypes_.size());
        for (std::size_t i = 0; i < indices_.size(); ++i) {
            const double index = indices_.at(0, i);
            if (index < 0 || index >= end) {
                Arguments::fail("protoIndices",
                                "0 to " + std::to_string(prototypes_.size() - 1) + ", found " +
                                    std::to_string(static_cast<std::int32_t>(index)) +
                                    " for instance " + std::to_string(i));
            }
        }
    }

    std::vector<std::string> prototypes_;
    NumberList indices_;
};

class InstanceOp final : public OpBody {
public:
    InstanceOp(PrototypeChoice prototypes,
               InstanceTransforms transforms,
               std::string parent,
               NumberedNames names,
               std::size_t prototypeInput)
        : prototypes_(std::move(prototypes)),
          transforms_(std::move(transforms)),
          parent_(std::move(parent)),
          names_(std::move(names)),
          prototypeInput_(prototypeInput) {}

    void cook(Cook& cook, LocationWriter& out) const override {
        const std::string_view path = cook.path();
        if (parent_.placeOf(path) == MountPath::Place::Above) {
            return writeWithChildren(cook.input(0), {parent_.nextName(path)}, out);
        }
        if (path == parent_.path()) {
            return cookParent(cook, out);
        }
        if (const auto copy = names_.find(parent_.path(), path)) {
            return cookInstance(cook, *copy, out);
        }
        out.pass(cook.input(0));
    }

private:
    void cookParent(Cook& cook, LocationWriter& out) const {
        const Location parent = cook.input(0);
        names_.checkThatNoneIsIn(parent);
        std::string text;
        writeWithChildren(parent, names_.list(text), out);
    }

    void cookInstance(Cook& cook, const NumberedNames::Copy& copy, LocationWriter& out) const {
        if (const Location own = cook.input(0); own.exists()) {
            return out.pass(own);  // The name is taken, of which the parent tells.
        }
        const std::string& prototype = prototypes_[copy.place];
        const Location original = cook.input(prototypeInput_, prototype + std::string(copy.rest));
        if (!copy.rest.empty()) {
            return out.pass(original);
        }
        if (!original.exists()) {
            throw OpError("argument \"prototypes\": there is no location " + prototype);
        }
        writeMoved(original, transforms_.write(copy.place, out), out);
    }

    const PrototypeChoice prototypes_;
    const InstanceTransforms transforms_;
    const MountPath parent_;
    const NumberedNames names_;
    const std::size_t prototypeInput_;
};

class InstanceOpType final : public OpType {
public:
    const OpSchema& schema() const override { return schema_; }

    std::unique_ptr<const OpBody> make(const GroupAttribute& group,
                                       std::size_t inputCount,
                                       const std::string& /*place*/) const override {
        const Arguments arguments(schema_, group);
        InstanceTransforms transforms(arguments);
        if (transforms.count() > std::numeric_limits<std::uint32_t>::max()) {
            throw OpError("there are too many instances");
        }
        const auto count = static_cast<std::uint32_t>(transforms.count());
        return std::make_unique<InstanceOp>(PrototypeChoice(arguments, count),
                                            std::move(transforms),
                                            arguments.getPath("parent", ""),
                                            NumberedNames(arguments.getName("name", "i"), 0, count),
                                            inputCount - 1);
    }

private:
    const OpSchema schema_ = {
        "instance",
        "Copies of prototypes, each with a transform of its own.",
        "Instances are named by a text and a number from 0 on. The prototypes are locations of the "
        "second input, or of the first when there is one alone. What an input cooked of them is "
        "shared: an instance takes memory for its own transform alone. The transform of the "
        "prototype acts before that of the instance.\n\n"
        "Several time samples make moving instances. Lists that have more than one sample must "
        "have them at the same times.",
        1,
        2,
        {
            {"prototypes", "strings", nullptr, "Paths of locations."},
            {"parent",
             "string",
             nullptr,
             "The location above the instances; it is made when it is missing."},
            {"matrices", "numbers", "", "16 numbers for each instance, row by row."},
            {"positions", "numbers", "", "In place of matrices: x, y, z of each instance."},
            {"orientations", "numbers", "", "With positions: a quaternion x, y, z, w of each."},
            {"scales",
             "numbers",
             "",
             "With positions: one number for all, one of each instance, or x, y, z of each."},
            {"protoIndices",
             "ints",
             "",
             "The number of each instance's prototype, from 0 on; else they come in turn."},
            {"name", "string", "i", "What stands before the number."},
        },
    };
};

}  // namespace

const OpType& instanceOpType() {
    static Support::OnceBuilt<InstanceOpType> type;
    return type.get();
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
