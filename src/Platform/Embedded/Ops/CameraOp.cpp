// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Locations/SingleLocation.h"
#include "Platform/Embedded/Ops/OpTypes.h"
#include "Platform/Support/OnceBuilt.h"

#include <limits>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::GroupAttribute;
using OvAttribute::GroupBuilder;
using OvAttribute::StringAttribute;

namespace {

constexpr double kMost = std::numeric_limits<float>::max();

constexpr NumberSchema kLens[] = {
    {"fov", 45, 0, 360},
    {"near", 0.1, -kMost, kMost},
    {"far", 10000, -kMost, kMost},
    {"left", -1, -kMost, kMost},
    {"right", 1, -kMost, kMost},
    {"top", 1, -kMost, kMost},
    {"bottom", -1, -kMost, kMost},
    {"orthographicWidth", 10, 0, kMost},
};

class CameraOpType final : public OpType {
public:
    const OpSchema& schema() const override { return schema_; }

    std::unique_ptr<const OpBody> make(const GroupAttribute& group,
                                       std::size_t /*inputCount*/,
                                       const std::string& /*place*/) const override {
        const Arguments arguments(schema_, group);
        const std::vector<const char*> projections = {"perspective", "orthographic"};
        const std::size_t projection = arguments.getChoice("projection", projections);
        GroupBuilder geometry(GroupBuilder::Mode::Flat);
        for (const NumberSchema& value : kLens) {
            setNumber(arguments, value, geometry);
        }
        geometry.set("projection", StringAttribute(projections[projection]));
        return makeSingleLocation(arguments, "camera", "geometry", geometry.build());
    }

private:
    const OpSchema schema_ = {
        "camera",
        "One camera.",
        "The location has every value of the lens in \"geometry\", given or not, as doubles with "
        "all samples of the argument. A camera looks along its negative z axis, and y points up. "
        "`left`, `right`, `top` and `bottom` are the edges of the picture: of a perspective camera "
        "in units of half the width that `fov` sees, so that a picture of 16 to 9 has 0.5625 and "
        "-0.5625 as its top and bottom; of an orthographic one in units of half its width.",
        0,
        0,
        {
            pathSchema(),
            {"projection", "string", "perspective", "`perspective` or `orthographic`."},
            {"fov", "number", "45", "The angle of view from left to right, 0 to 360 degrees."},
            {"near", "number", "0.1", "Nothing nearer is seen."},
            {"far", "number", "10000", "Nothing farther is seen."},
            {"left", "number", "-1", "The left edge."},
            {"right", "number", "1", "The right edge."},
            {"top", "number", "1", "The upper edge."},
            {"bottom", "number", "-1", "The lower edge."},
            {"orthographicWidth", "number", "10", "The full width of an orthographic view."},
            transformSchema(),
        },
    };
};

}  // namespace

const OpType& cameraOpType() {
    static Support::OnceBuilt<CameraOpType> type;
    return type.get();
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
