// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Arguments.h"
#include "Platform/Embedded/Ops/Copies/MatrixPowers.h"
#include "Platform/Embedded/Ops/Copies/MatrixValue.h"
#include "Platform/Embedded/Ops/Copies/NumberedNames.h"
#include "Platform/Embedded/Ops/Locations/LocationChange.h"
#include "Platform/Embedded/Ops/OpTypes.h"
#include "Platform/Embedded/Runtime/Cook.h"
#include "Platform/Embedded/Runtime/MountPath.h"
#include "Platform/Support/OnceBuilt.h"

#include <string>
#include <utility>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::GroupAttribute;

namespace {

class DuplicateOp final : public OpBody {
public:
    DuplicateOp(std::string source, NumberedNames copies, NumberList matrices)
        : source_(std::move(source)),
          parent_(source_.path(), 0, source_.path().rfind('/')),
          copies_(std::move(copies)),
          matrices_(std::move(matrices)) {
        for (std::size_t i = 0; isStep() && i < matrices_.sampleCount(); ++i) {
            steps_.emplace_back(matrixAt(matrices_, i, 0), copies_.count());
        }
    }

    void cook(Cook& cook, LocationWriter& out) const override {
        const std::string_view path = cook.path();
        if (path == parent_) {
            return cookParent(cook, out);
        }
        const Location own = cook.input(0);
        const auto copy = copies_.find(parent_, path);
        if (copy && !own.exists()) {
            return cookCopy(cook, *copy, out);
        }
        if (own.exists() && !path.empty() && endsWay(own, path)) {
            throw OpError(kNoSource + source_.path());
        }
        out.pass(own);
    }

private:
    static constexpr const char* kNoSource = "argument \"source\": there is no location ";

    /// Whether the location is on the way to the source, which does not go on from it.
    bool endsWay(const Location& location, std::string_view path) const {
        return source_.placeOf(path) == MountPath::Place::Above &&
               location.names().find(source_.nextName(path), 0) < 0;
    }

    void cookParent(Cook& cook, LocationWriter& out) const {
        if (!cook.input(0, source_.path()).exists()) {
            throw OpError(kNoSource + source_.path());
        }
        const Location parent = cook.input(0);
        copies_.checkThatNoneIsIn(parent);
        std::string text;
        writeWithChildren(parent, copies_.list(text), out);
    }

    void cookCopy(Cook& cook, const NumberedNames::Copy& copy, LocationWriter& out) const {
        const Location original = cook.input(0, source_.path() + std::string(copy.rest));
        if (!original.exists() || !copy.rest.empty() || matrices_.isEmpty()) {
            return out.pass(original);
        }
        writeMoved(original, matrixOf(copy.place, out), out);
    }

    LocationWriter::Value* matrixOf(std::size_t copy, LocationWriter& out) const {
        return addMatrix(matrices_, out, [&](std::size_t sample) {
            return isStep() ? steps_[sample][copy + 1] : matrixAt(matrices_, sample, copy);
        });
    }

    /// Whether there is one matrix, from each copy to the next.
    bool isStep() const { return matrices_.size() == kMatrixSize; }

    const MountPath source_;
    const std::string parent_;
    const NumberedNames copies_;
    const NumberList matrices_;
    std::vector<MatrixPowers> steps_;  ///< One for each sample.
};

std::string nameOf(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

/// One for all copies, or one for each.
NumberList readMatrices(const Arguments& arguments, std::uint32_t copies) {
    NumberList matrices = arguments.getNumbers("transform", kMatrixSize, true);
    const std::size_t count = matrices.size() / kMatrixSize;
    if (arguments.has("transform") && count != 1 && count != copies) {
        Arguments::fail("transform",
                        "a matrix for all copies, or for each of the " + std::to_string(copies) +
                            ", found " + std::to_string(count));
    }
    return matrices;
}

class DuplicateOpType final : public OpType {
public:
    const OpSchema& schema() const override { return schema_; }

    std::unique_ptr<const OpBody> make(const GroupAttribute& group,
                                       std::size_t /*inputCount*/,
                                       const std::string& /*place*/) const override {
        const Arguments arguments(schema_, group);
        const std::string source = arguments.getPath("source", "");
        const auto copies =
            static_cast<std::uint32_t>(arguments.getInt("copies", 1, 0, kMostCopies));
        return std::make_unique<DuplicateOp>(
            source,
            NumberedNames(arguments.getName("name", nameOf(source) + "_"), 1, copies),
            readMatrices(arguments, copies));
    }

private:
    static constexpr std::int32_t kMostCopies = 10'000'000;

    const OpSchema schema_ = {
        "duplicate",
        "Copies of a location and of all below it, beside it.",
        "Copies are named by a text and a number from 1 on. What the input cooked is shared: a "
        "copy takes memory for its own transform alone. With one matrix each copy stands to the "
        "former one as the first copy to the location itself; the transform of the location acts "
        "before it.",
        1,
        1,
        {
            {"source", "string", nullptr, "The path of the location."},
            {"copies", "int", "1", "How many, up to ten millions."},
            {"name", "string", "", "What stands before the number; the source's name and `_`."},
            {"transform", "numbers", "", "A matrix of 16 numbers for all copies, or for each."},
        },
    };
};

}  // namespace

const OpType& duplicateOpType() {
    static Support::OnceBuilt<DuplicateOpType> type;
    return type.get();
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
