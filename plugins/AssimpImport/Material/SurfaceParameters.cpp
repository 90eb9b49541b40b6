// SPDX-License-Identifier: Apache-2.0
#include "Material/SurfaceParameters.h"

#include <assimp/GltfMaterial.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace AssimpImport {
namespace {

struct Key {
    const char* name;
    unsigned int type;
    unsigned int index;
};

struct PlainParameter {
    const char* name;
    Key key;
};

const PlainParameter kPlainParameters[] = {
    {"metalness", {AI_MATKEY_METALLIC_FACTOR}},
    {"transmission", {AI_MATKEY_TRANSMISSION_FACTOR}},
    {"coat", {AI_MATKEY_CLEARCOAT_FACTOR}},
    {"coat_roughness", {AI_MATKEY_CLEARCOAT_ROUGHNESS_FACTOR}},
    {"sheen_roughness", {AI_MATKEY_SHEEN_ROUGHNESS_FACTOR}},
};

float within01(float value) {
    return std::isfinite(value) ? std::clamp(value, 0.0F, 1.0F) : 0.0F;
}

std::optional<float> numberOf(const aiMaterial& material, const Key& key) {
    ai_real value = 0;
    const aiReturn found = material.Get(key.name, key.type, key.index, value);
    return found == AI_SUCCESS && std::isfinite(value) ? std::optional<float>(value) : std::nullopt;
}

std::optional<aiColor4D> colorOf(const aiMaterial& material, const Key& key) {
    aiColor4D color;
    const aiReturn found = material.Get(key.name, key.type, key.index, color);
    return found == AI_SUCCESS ? std::optional<aiColor4D>(color) : std::nullopt;
}

std::vector<float> threeOf(const aiColor4D& color) {
    return {within01(color.r), within01(color.g), within01(color.b)};
}

float brightest(const aiColor4D& color) {
    const std::vector<float> parts = threeOf(color);
    return *std::max_element(parts.begin(), parts.end());
}

// A cosine lobe of that exponent is about as wide as a microfacet lobe of the result.
float roughnessOfExponent(float exponent) {
    return within01(std::sqrt(2.0F / (std::max(exponent, 0.0F) + 2.0F)));
}

std::optional<float> roughnessOf(const aiMaterial& material) {
    if (const auto roughness = numberOf(material, {AI_MATKEY_ROUGHNESS_FACTOR})) {
        return within01(*roughness);
    }
    if (const auto glossiness = numberOf(material, {AI_MATKEY_GLOSSINESS_FACTOR})) {
        return 1.0F - within01(*glossiness);
    }
    if (const auto exponent = numberOf(material, {AI_MATKEY_SHININESS})) {
        return roughnessOfExponent(*exponent);
    }
    return std::nullopt;
}

void addPlain(const AttributeMaker& make, const aiMaterial& material, GroupEntries& parameters) {
    for (const PlainParameter& parameter : kPlainParameters) {
        if (const auto value = numberOf(material, parameter.key)) {
            parameters.add(parameter.name, make.number(within01(*value)));
        }
    }
    if (const auto roughness = roughnessOf(material)) {
        parameters.add("specular_roughness", make.number(*roughness));
    }
    const auto refraction = numberOf(material, {AI_MATKEY_REFRACTI});
    if (refraction && *refraction > 1.0F) {
        parameters.add("specular_IOR", make.number(*refraction));
    }
}

// A weight and a colour of its own: the brightest part of the file's colour is the weight.
void addWeighted(const AttributeMaker& make,
                 const aiColor4D& color,
                 const char* weight,
                 const char* name,
                 GroupEntries& parameters) {
    const float most = brightest(color);
    std::vector<float> parts = threeOf(color);
    for (float& part : parts) {
        part = most > 0.0F ? part / most : 1.0F;
    }
    parameters.add(weight, make.number(most));
    parameters.add(name, make.floats(parts, 3));
}

void addSpecular(const AttributeMaker& make, const aiMaterial& material, GroupEntries& parameters) {
    const auto color = colorOf(material, {AI_MATKEY_COLOR_SPECULAR});
    if (color && !numberOf(material, {AI_MATKEY_METALLIC_FACTOR})) {
        addWeighted(make, *color, "specular", "specular_color", parameters);
    }
    const auto sheen = colorOf(material, {AI_MATKEY_SHEEN_COLOR_FACTOR});
    if (sheen && brightest(*sheen) > 0.0F) {
        addWeighted(make, *sheen, "sheen", "sheen_color", parameters);
    }
}

void addEmission(const AttributeMaker& make, const aiMaterial& material, GroupEntries& parameters) {
    const auto color = colorOf(material, {AI_MATKEY_COLOR_EMISSIVE});
    if (color && brightest(*color) > 0.0F) {
        const float strength = numberOf(material, {AI_MATKEY_EMISSIVE_INTENSITY}).value_or(1.0F);
        parameters.add("emission", make.number(std::max(strength, 0.0F)));
        parameters.add("emission_color", make.floats(threeOf(*color), 3));
    }
}

// A glTF material says by its mode whether the alpha of its colour counts.
float opacityOf(const aiMaterial& material) {
    aiString mode;
    const auto base = colorOf(material, {AI_MATKEY_BASE_COLOR});
    if (material.Get(AI_MATKEY_GLTF_ALPHAMODE, mode) == AI_SUCCESS) {
        return base && mode != aiString("OPAQUE") ? within01(base->a) : 1.0F;
    }
    return within01(numberOf(material, {AI_MATKEY_OPACITY}).value_or(1.0F));
}

}  // namespace

std::vector<float> baseColorOf(const aiMaterial& material) {
    auto color = colorOf(material, {AI_MATKEY_BASE_COLOR});
    if (!color) {
        color = colorOf(material, {AI_MATKEY_COLOR_DIFFUSE});
    }
    return threeOf(color.value_or(aiColor4D(0.8F, 0.8F, 0.8F, 1.0F)));
}

GroupEntries makeSurfaceParameters(const AttributeMaker& make, const aiMaterial& material) {
    GroupEntries parameters;
    parameters.add("base", make.number(1.0F));
    parameters.add("base_color", make.floats(baseColorOf(material), 3));
    addPlain(make, material, parameters);
    addSpecular(make, material, parameters);
    addEmission(make, material, parameters);
    const float opacity = opacityOf(material);
    if (opacity < 1.0F) {
        parameters.add("opacity", make.floats({opacity, opacity, opacity}, 3));
    }
    return parameters;
}

}  // namespace AssimpImport
