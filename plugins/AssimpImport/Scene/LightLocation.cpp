// SPDX-License-Identifier: Apache-2.0
#include "Scene/LightLocation.h"

#include <algorithm>
#include <cmath>

namespace AssimpImport {
namespace {

constexpr double kDegrees = 180.0 / 3.14159265358979323846;

struct Brightness {
    std::vector<double> color;
    double intensity = 1.0;
};

const char* typeOf(const aiLight& light) {
    switch (light.mType) {
        case aiLightSource_DIRECTIONAL:
            return "distant";
        case aiLightSource_SPOT:
            return "spot";
        case aiLightSource_AMBIENT:
            return "ambient";
        case aiLightSource_AREA:
        case aiLightSource_UNDEFINED:  // an area or a volume, of which nothing more is known
            return "area";
        default:
            return "point";
    }
}

double nonNegative(float value) {
    return std::isfinite(value) && value > 0.0F ? static_cast<double>(value) : 0.0;
}

// What is brighter than 1 goes into the intensity.
Brightness brightnessOf(const aiColor3D& color) {
    Brightness brightness;
    brightness.color = {nonNegative(color.r), nonNegative(color.g), nonNegative(color.b)};
    const double most = *std::max_element(brightness.color.begin(), brightness.color.end());
    if (most > 1.0) {
        brightness.intensity = most;
        for (double& part : brightness.color) {
            part /= most;
        }
    }
    return brightness;
}

Matrix lightFrame(const aiLight& light) {
    const bool directed =
        light.mType != aiLightSource_POINT && light.mType != aiLightSource_AMBIENT;
    const aiVector3D ahead(0, 0, -1);
    const aiVector3D up(0, 1, 0);
    return directed ? frameAlong(light.mPosition, light.mDirection, light.mUp)
                    : frameAlong(light.mPosition, ahead, up);
}

double coneAngle(float angle, bool half) {
    const double degrees = nonNegative(angle) * kDegrees * (half ? 2.0 : 1.0);
    return std::min(degrees, 180.0);
}

void addCone(const AttributeMaker& make,
             const aiLight& light,
             const AssetFormat& format,
             GroupEntries& values) {
    const bool outerIsGuessed = std::string(format.extension) == "dae";
    const double inner = coneAngle(light.mAngleInnerCone, format.halfCones);
    const double outer = coneAngle(light.mAngleOuterCone, format.halfCones);
    const double cone = outerIsGuessed ? inner : std::max(inner, outer);
    values.add("coneAngle", make.number(cone));
    values.add("coneInnerAngle", make.number(std::min(inner, cone)));
}

void addSize(const AttributeMaker& make, const aiLight& light, GroupEntries& values) {
    const double width = nonNegative(light.mSize.x);
    const double height = nonNegative(light.mSize.y);
    values.add("width", make.number(width > 0.0 ? width : 1.0));
    values.add("height", make.number(height > 0.0 ? height : 1.0));
}

SuiteHandle makeLight(const AttributeMaker& make, const aiLight& light, const AssetFormat& format) {
    const std::string type = typeOf(light);
    const Brightness brightness =
        brightnessOf(type == "ambient" ? light.mColorAmbient : light.mColorDiffuse);
    GroupEntries values;
    values.add("type", make.string(type));
    values.add("color", make.doubles(brightness.color, 3));
    values.add("intensity", make.number(brightness.intensity));
    values.add("exposure", make.number(0.0));
    if (type == "spot") {
        addCone(make, light, format, values);
    } else if (type == "area") {
        addSize(make, light, values);
    }
    return make.group(values);
}

}  // namespace

SuiteHandle makeLightLocation(const LocationMaker& locations,
                              const aiLight& light,
                              const AssetFormat& format) {
    GroupEntries attributes = locations.attributes("light", textOf(light.mName));
    locations.addXform(attributes, lightFrame(light));
    attributes.add("light", makeLight(locations.make(), light, format));
    return locations.location(attributes);
}

}  // namespace AssimpImport
