// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Locations/SingleLocation.h"

#include "Platform/Embedded/Attributes/Forms/NumberText.h"
#include "Platform/Embedded/Ops/Locations/TransformEdit.h"
#include "Platform/Embedded/Ops/SceneOp.h"
#include "Platform/Support/NearestName.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::DoubleAttribute;
using OvAttribute::GroupAttribute;
using OvAttribute::GroupBuilder;
using OvAttribute::StringAttribute;

namespace {

constexpr const char* kPath = "path";

std::string textOf(double number) {
    char text[OvAttribute::Embedded::NumberText::kLongest];
    return {text, OvAttribute::Embedded::NumberText::write(text, number)};
}

void check(const NumberSchema& schema, double number) {
    const bool isInside = number >= schema.least && number <= schema.most;
    if (!isInside) {
        Arguments::fail(
            schema.name,
            textOf(schema.least) + " to " + textOf(schema.most) + ", found " + textOf(number));
    }
}

/// What is no step is passed over where transforms are read; here it is a slip of the pen.
void checkSteps(const GroupAttribute& transform) {
    const std::vector<std::string_view> steps = {
        "translate", "rotate", "scale", "matrix", "origin"};
    for (std::int64_t i = 0; i < transform.getNumberOfChildren(); ++i) {
        const std::string_view name = transform.getChildNameView(i);
        const bool isStep = std::any_of(steps.begin(), steps.end(), [&](std::string_view step) {
            return name.substr(0, step.size()) == step;
        });
        if (!isStep) {
            throw OpError("argument \"" + std::string(kTransform) + "\": there is no step \"" +
                          std::string(name) + "\"" + Support::didYouMean(name, steps));
        }
    }
}

}  // namespace

void setNumber(const Arguments& arguments, const NumberSchema& schema, GroupBuilder& values) {
    const NumberList numbers = arguments.getNumbers(schema.name, schema.count, false);
    const auto tupleSize = static_cast<long>(schema.count);
    if (numbers.isEmpty()) {
        const std::vector<double> otherwise(schema.count, schema.otherwise);
        values.set(schema.name, DoubleAttribute(otherwise, tupleSize));
        return;
    }
    for (std::size_t sample = 0; sample < numbers.sampleCount(); ++sample) {
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            check(schema, numbers.at(sample, i));
        }
    }
    values.set(schema.name, numbers.asDoubles(schema.count));
}

std::unique_ptr<const OpBody> makeSingleLocation(const Arguments& arguments,
                                                 const char* type,
                                                 const char* name,
                                                 const GroupAttribute& values) {
    GroupBuilder attributes(GroupBuilder::Mode::Flat);
    attributes.set("type", StringAttribute(type));
    if (const GroupAttribute transform = arguments.getGroup(kTransform)) {
        checkSteps(transform);
        attributes.set(kTransform, transform);
    }
    attributes.set(name, values);
    GroupBuilder tree(GroupBuilder::Mode::Flat);
    tree.set("a", attributes.build());
    return makeScene(tree.build(), arguments.getPath(kPath, ""));
}

ArgumentSchema pathSchema() {
    return {kPath, "string", nullptr, "Where it stands."};
}

ArgumentSchema transformSchema() {
    return {
        kTransform,
        "group",
        "",
        "Its transform: \"translate\", \"rotate\", \"scale\", \"matrix\" in any order, of which "
        "the later one acts first."};
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
