// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/GroupBuilder.h>

#include "Platform/Embedded/Ops/Arguments.h"
#include "Platform/Embedded/Ops/Locations/LocationChange.h"
#include "Platform/Embedded/Ops/Locations/TransformEdit.h"
#include "Platform/Embedded/Ops/OpTypes.h"
#include "Platform/Embedded/Ops/Patterns/PathPatterns.h"
#include "Platform/Embedded/Runtime/AttributeEdit.h"
#include "Platform/Embedded/Runtime/Cook.h"
#include "Platform/Support/OnceBuilt.h"

#include <cmath>
#include <utility>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::DoubleAttribute;
using OvAttribute::GroupAttribute;
using OvAttribute::GroupBuilder;
using OvAttribute::TimedSamples;
using OvAttribute::Embedded::asGroup;
using OvAttribute::Embedded::GroupValue;

namespace {

enum class Mode { Replace, Add };

class TransformOp final : public OpBody {
public:
    TransformOp(PathPatterns paths, GroupAttribute transform, Mode mode)
        : paths_(std::move(paths)), transform_(std::move(transform)), mode_(mode) {}

    void cook(Cook& cook, LocationWriter& out) const override {
        const Location input = cook.input(0);
        if (!input.exists() || !paths_.matches(cook.path())) {
            return out.pass(input);
        }
        AttributeEdit attributes(input);
        const GroupValue* const present = asGroup(attributes.find(kTransform));
        const bool isAdded = mode_ == Mode::Add && present;
        attributes.set(kTransform,
                       isAdded ? transformWithin(present, children(), out) : transform_.handle());
        writeWithAttributes(input, attributes.write(out), out);
    }

private:
    TransformChildren children() const {
        const GroupValue& transform = *asGroup(transform_.handle());
        TransformChildren children;
        for (std::int64_t i = 0; i < transform.size(); ++i) {
            children.emplace_back(transform.shape->name(i), transform[i]);
        }
        return children;
    }

    PathPatterns paths_;
    GroupAttribute transform_;
    Mode mode_;
};

/// A part of the transform, and how many numbers it has at each time.
struct Part {
    const char* name;
    std::size_t size;
};

/// The later one acts on a point first.
constexpr Part kParts[] = {{"translate", 3}, {"rotate", 4}, {"scale", 3}, {"matrix", 16}};

/// The numbers of one sample, as one sample for each time.
DoubleAttribute spread(const Part& part, const NumberList& numbers, const NumberList& times) {
    if (numbers.size() != part.size * times.size()) {
        Arguments::fail(part.name,
                        std::to_string(part.size) + " numbers for all, or for each of the " +
                            std::to_string(times.size()) + " sample times, found " +
                            std::to_string(numbers.size()));
    }
    TimedSamples<double> samples;
    for (std::size_t i = 0; i < times.size(); ++i) {
        std::vector<double>& values =
            samples.emplace_back(static_cast<float>(times.at(0, i)), std::vector<double>()).second;
        for (std::size_t j = 0; j < part.size; ++j) {
            values.push_back(numbers.at(0, i * part.size + j));
        }
    }
    return DoubleAttribute(samples, static_cast<long>(part.size));
}

/// Null when it is not there.
DoubleAttribute readPart(const Arguments& arguments, const Part& part, const NumberList& times) {
    const NumberList numbers = arguments.getNumbers(part.name, part.size, !times.isEmpty());
    if (!times.isEmpty() && numbers.sampleCount() > 1) {
        Arguments::fail(part.name, "one sample, since \"sampleTimes\" are given");
    }
    const bool isSpread =
        !times.isEmpty() && arguments.has(part.name) && numbers.size() != part.size;
    return isSpread ? spread(part, numbers, times) : numbers.asDoubles(part.size);
}

NumberList readTimes(const Arguments& arguments) {
    NumberList times = arguments.getNumbers("sampleTimes", 1, true);
    bool isRight = times.sampleCount() < 2;
    for (std::size_t i = 0; i < times.size(); ++i) {
        const double time = times.at(0, i);
        isRight = isRight && std::isfinite(time) && (i == 0 || times.at(0, i - 1) < time);
    }
    if (!isRight) {
        Arguments::fail("sampleTimes", "times one after the other");
    }
    return times;
}

GroupAttribute readTransform(const Arguments& arguments) {
    const NumberList times = readTimes(arguments);
    GroupBuilder transform(GroupBuilder::Mode::Flat);
    bool isEmpty = true;
    for (const Part& part : kParts) {
        if (const DoubleAttribute value = readPart(arguments, part, times)) {
            transform.set(part.name, value);
            isEmpty = false;
        }
    }
    if (isEmpty) {
        throw OpError("none of \"translate\", \"rotate\", \"scale\" and \"matrix\" is given");
    }
    return transform.build();
}

class TransformOpType final : public OpType {
public:
    const OpSchema& schema() const override { return schema_; }

    std::unique_ptr<const OpBody> make(const GroupAttribute& group,
                                       std::size_t /*inputCount*/,
                                       const std::string& /*place*/) const override {
        const Arguments arguments(schema_, group);
        return std::make_unique<TransformOp>(
            PathPatterns(arguments.getStrings("paths")),
            readTransform(arguments),
            static_cast<Mode>(arguments.getChoice("mode", {"replace", "add"})));
    }

private:
    const OpSchema schema_ = {
        "transform",
        "Writes the transform of the locations that its patterns match.",
        "A point is scaled first, then rotated, then moved; a matrix acts before all of these. One "
        "of them must be given. Points are rows: of a matrix, the last four numbers are the "
        "translation.\n\n"
        "For a moving location, `sampleTimes` are the times of its samples, and an argument has "
        "its numbers for each time one after the other; one that has them once is the same at all "
        "times. Without `sampleTimes` the samples are those of the arguments themselves.",
        1,
        1,
        {
            {"paths", "strings", nullptr, "Patterns for the paths of the locations."},
            {"translate", "numbers", "", "x, y, z."},
            {"rotate", "numbers", "", "An angle in degrees, and the axis x, y, z."},
            {"scale", "numbers", "", "x, y, z."},
            {"matrix", "numbers", "", "16 numbers, row by row."},
            {"sampleTimes", "numbers", "", "Times of samples, from the frame's."},
            {"mode",
             "string",
             "replace",
             "`replace`: in place of the transform that is there; `add`: after it, in the space of "
             "the location above."},
        },
    };
};

}  // namespace

const OpType& transformOpType() {
    static Support::OnceBuilt<TransformOpType> type;
    return type.get();
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
