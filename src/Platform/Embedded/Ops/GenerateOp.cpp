// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Arguments.h"
#include "Platform/Embedded/Ops/Generated/GeneratedAttributes.h"
#include "Platform/Embedded/Ops/Generated/GeneratedTree.h"
#include "Platform/Embedded/Ops/OpTypes.h"
#include "Platform/Embedded/Runtime/Cook.h"
#include "Platform/Support/OnceBuilt.h"

#include <limits>
#include <string>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::GroupAttribute;

namespace {

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

class GenerateOp final : public OpBody {
public:
    struct Faults {
        std::int32_t absentEvery = 0;  ///< 0: never.
        std::int32_t failEvery = 0;
    };

    GenerateOp(GeneratedTree tree, GeneratedAttributes attributes, Faults faults)
        : tree_(tree), attributes_(std::move(attributes)), faults_(faults) {}

    void cook(Cook& cook, LocationWriter& out) const override {
        if (cook.path().empty()) {
            return out.setChildren({GeneratedTree::kTopName});
        }
        const std::optional<GeneratedTree::Place> place = tree_.find(cook.path());
        if (!place || isEvery(faults_.absentEvery, place->number)) {
            return out.setAbsent();
        }
        if (isEvery(faults_.failEvery, place->number)) {
            throw OpError("fails as it is told to, at every location whose number " +
                          std::to_string(faults_.failEvery) + " divides");
        }
        out.setAttributes(attributes_.write(*place, out));
        GeneratedTree::Names names(tree_.childCount(*place));
        out.setChildren(names.all());
    }

private:
    static bool isEvery(std::int32_t interval, std::uint64_t number) {
        return interval > 0 && number > 0 && number % static_cast<std::uint64_t>(interval) == 0;
    }

    GeneratedTree tree_;
    GeneratedAttributes attributes_;
    Faults faults_;
};

constexpr std::int32_t kMostChildren = 1 << 24;

/// Of a wide scene: as many as its count lets be.
std::int32_t widthOf(const Arguments& arguments, std::int32_t breadth, std::int32_t count) {
    if (count > kMostChildren) {
        Arguments::fail("count",
                        "0 to " + std::to_string(kMostChildren) + " for a wide scene, found " +
                            std::to_string(count));
    }
    return count == 0 || arguments.has("breadth") ? breadth : kMostChildren;
}

GeneratedTree treeOf(const Arguments& arguments) {
    const std::size_t shape = arguments.getChoice("shape", {"tree", "wide", "deep", "grid"});
    const std::int32_t breadth = arguments.getInt("breadth", 32, 1, kMostChildren);
    const std::int32_t depth = arguments.getInt("depth", 3, 0, 1 << 20);
    const std::int32_t count = arguments.getInt("count", 0, 0, kMost);
    const std::uint64_t most =
        count == 0 ? GeneratedTree::kNoLimit : static_cast<std::uint64_t>(count);
    switch (shape) {
        case 1:
            return GeneratedTree(widthOf(arguments, breadth, count), 1, most);
        case 2:
            return GeneratedTree(1, depth, most);
        case 3:
            return GeneratedTree(breadth, 2, most);
        default:
            return GeneratedTree(breadth, depth, most);
    }
}

class GenerateOpType final : public OpType {
public:
    const OpSchema& schema() const override { return schema_; }

    std::unique_ptr<const OpBody> make(const GroupAttribute& group,
                                       std::size_t /*inputCount*/,
                                       const std::string& /*place*/) const override {
        const Arguments arguments(schema_, group);
        GenerateOp::Faults faults;
        faults.absentEvery = arguments.getInt("absentEvery", 0, 0, kMost);
        faults.failEvery = arguments.getInt("failEvery", 0, 0, kMost);
        return std::make_unique<GenerateOp>(
            treeOf(arguments),
            GeneratedAttributes(arguments.getInt("seed", 0, -kMost, kMost),
                                arguments.getInt("attributes", 4, 0, 1000),
                                arguments.getInt("motionSamples", 1, 1, 1000),
                                arguments.getInt("materials", 0, 0, 1 << 16)),
            faults);
    }

private:
    const OpSchema schema_ = {
        "generate",
        "A scene of any size, made up from its arguments: the same ones, the same scene.",
        "It takes no memory but for what is cooked. The top location is /root, and "
        "children are called `c0`, `c1`, ... Each location has \"type\", \"xform\" with a "
        "\"matrix\", \"bound\" and the small attributes \"value0\", \"value1\", ...: in turn an "
        "int, a float, a double and a string. With materials it has \"material\" too: a "
        "network of one `standard_surface`, shared by all locations that have it.",
        0,
        0,
        {
            {"shape",
             "string",
             "tree",
             "`tree`: every location has children, down to the last level; `wide`: one level, of "
             "`breadth` children, or without it as many as `count` says; `deep`: one child a "
             "level; "
             "`grid`: `breadth` rows of as many cells."},
            {"breadth", "int", "32", "Children of a location."},
            {"depth", "int", "3", "Levels below the top location."},
            {"count", "int", "0", "The most locations there are, level by level; 0: no limit."},
            {"seed", "int", "0", "Another number, other values."},
            {"attributes", "int", "4", "Small attributes of each location, up to 1000."},
            {"motionSamples", "int", "1", "Time samples of each transform, up to 1000."},
            {"materials", "int", "0", "Materials that the locations have in turn; 0: none."},
            {"absentEvery", "int", "0", "Every such location is not there; 0: none."},
            {"failEvery", "int", "0", "Every such location fails; 0: none."},
        },
    };
};

}  // namespace

const OpType& generateOpType() {
    static Support::OnceBuilt<GenerateOpType> type;
    return type.get();
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
