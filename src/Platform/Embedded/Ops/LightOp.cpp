// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Locations/SingleLocation.h"
#include "Platform/Embedded/Ops/OpTypes.h"
#include "Platform/Support/OnceBuilt.h"

#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

using OvAttribute::GroupAttribute;
using OvAttribute::GroupBuilder;
using OvAttribute::StringAttribute;

namespace {

constexpr double kMost = std::numeric_limits<float>::max();

/// A number that lights of some types have.
struct LightNumber {
    NumberSchema schema;
    std::string_view types;  ///< That have it; "" for all.
};

constexpr LightNumber kNumbers[] = {
    {{"color", 1, 0, kMost, 3}, ""},
    {{"intensity", 1, 0, kMost}, ""},
    {{"exposure", 0, -1000, 1000}, ""},
    {{"angle", 0.53, 0, 180}, "distant"},
    {{"radius", 0, 0, kMost}, "point spot"},
    {{"coneAngle", 45, 0, 180}, "spot"},
    {{"coneInnerAngle", 45, 0, 180}, "spot"},
    {{"width", 1, 0, kMost}, "area"},
    {{"height", 1, 0, kMost}, "area"},
};

/// None is part of another.
const std::vector<const char*>& lightTypes() {
    static const auto& types =
        *new std::vector<const char*>{"distant", "point", "spot", "area", "ambient"};
    return types;
}

bool hasNumber(const LightNumber& number, const std::string& type) {
    return number.types.empty() || number.types.find(type) != std::string_view::npos;
}

class LightOpType final : public OpType {
public:
    const OpSchema& schema() const override { return schema_; }

    std::unique_ptr<const OpBody> make(const GroupAttribute& group,
                                       std::size_t /*inputCount*/,
                                       const std::string& /*place*/) const override {
        const Arguments arguments(schema_, group);
        const std::string type = lightTypes()[arguments.getChoice("type", lightTypes())];
        GroupBuilder light(GroupBuilder::Mode::Flat);
        light.set("type", StringAttribute(type));
        for (const LightNumber& number : kNumbers) {
            if (hasNumber(number, type)) {
                setNumber(arguments, number.schema, light);
            } else if (arguments.has(number.schema.name)) {
                Arguments::fail(number.schema.name, "nothing, since the light is a " + type);
            }
        }
        return makeSingleLocation(arguments, "light", "light", light.build());
    }

private:
    const OpSchema schema_ = {
        "light",
        "One light.",
        "The location has in \"light\" every value that a light of its type has, given or not, as "
        "doubles. Spots, distant and area lights shine along their negative z axis. What a light "
        "sends out is its color, times its intensity, times 2 to the power of its exposure.",
        0,
        0,
        {
            pathSchema(),
            {"type",
             "string",
             "distant",
             "`distant` (the sun), `point`, `spot`, `area` (a rectangle), or `ambient` (from "
             "everywhere)."},
            {"color", "numbers", "1 1 1", "Red, green, blue."},
            {"intensity", "number", "1", "How bright it is."},
            {"exposure", "number", "0", "The same in powers of 2."},
            {"angle",
             "number",
             "0.53",
             "Of a distant light: how wide it is in the sky, in degrees."},
            {"radius", "number", "0", "Of a point or a spot."},
            {"coneAngle", "number", "45", "Of a spot: the whole angle of its cone, in degrees."},
            {"coneInnerAngle", "number", "45", "Of a spot: the part of it in full light."},
            {"width", "number", "1", "Of an area, along its x axis."},
            {"height", "number", "1", "Of an area, along its y axis."},
            transformSchema(),
        },
    };
};

}  // namespace

const OpType& lightOpType() {
    static Support::OnceBuilt<LightOpType> type;
    return type.get();
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
