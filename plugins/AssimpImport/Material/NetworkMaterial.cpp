// SPDX-License-Identifier: Apache-2.0
#include "Material/NetworkMaterial.h"

#include "Material/SurfaceParameters.h"

namespace AssimpImport {
namespace {

constexpr char kSurfaceName[] = "surface";

// What Assimp calls the image that holds roughness (green) and metalness (blue) of glTF.
constexpr aiTextureType kRoughnessAndMetalness = aiTextureType_UNKNOWN;

class Network {
public:
    Network(const AttributeMaker& make, const ImageNodes& images, const aiMaterial& material)
        : make_(make), images_(images), material_(material) {
        surface_.parameters = makeSurfaceParameters(make, material);
    }

    void connectImages() {
        connectBaseColor();
        connectRoughnessAndMetalness();
        connectPlain(aiTextureType_EMISSIVE, "emission_color", "emission_color_image");
        connectPlain(aiTextureType_OPACITY, "opacity", "opacity_image");
        connectNormal();
    }

    SuiteHandle make() const {
        GroupEntries nodes;
        nodes.add(surface_.name, makeShadingNode(make_, surface_));
        for (const ShadingNode& node : nodes_) {
            nodes.add(node.name, makeShadingNode(make_, node));
        }
        GroupEntries terminals;
        terminals.add("surface", make_.string(surface_.name));
        GroupEntries material;
        material.add("style", make_.string("network"));
        material.add("nodes", make_.group(nodes));
        material.add("terminals", make_.group(terminals));
        return make_.group(material);
    }

private:
    bool addImage(aiTextureType use, const char* name) {
        const auto image = images_.find(material_, use, name);
        if (image) {
            nodes_.push_back(*image);
        }
        return image.has_value();
    }

    void connectPlain(aiTextureType use, const char* input, const char* imageName) {
        if (addImage(use, imageName)) {
            connect(make_, surface_, input, imageName);
        }
    }

    // In glTF the file's colour filters the image's; elsewhere the image stands for the colour.
    void connectBaseColor() {
        constexpr char kImage[] = "base_color_image";
        if (!addImage(aiTextureType_BASE_COLOR, kImage)) {
            connectPlain(aiTextureType_DIFFUSE, "base_color", kImage);
            return;
        }
        ShadingNode filter{"base_color_filter", "multiply", {}, {}};
        connect(make_, filter, "in1", kImage);
        filter.parameters.add("in2", make_.floats(baseColorOf(material_), 3));
        connect(make_, surface_, "base_color", filter.name);
        nodes_.push_back(std::move(filter));
    }

    void connectChannel(const char* image, int channel, const char* input) {
        ShadingNode extract{std::string(input) + "_channel", "extract", {}, {}};
        connect(make_, extract, "in", image);
        extract.parameters.add("index", make_.number(channel));
        connect(make_, surface_, input, extract.name);
        nodes_.push_back(std::move(extract));
    }

    void connectRoughnessAndMetalness() {
        constexpr char kImage[] = "roughness_metalness_image";
        if (addImage(kRoughnessAndMetalness, kImage)) {
            connectChannel(kImage, 1, "specular_roughness");
            connectChannel(kImage, 2, "metalness");
            return;
        }
        connectPlain(aiTextureType_DIFFUSE_ROUGHNESS, "specular_roughness", "roughness_image");
        connectPlain(aiTextureType_METALNESS, "metalness", "metalness_image");
    }

    void connectNormal() {
        constexpr char kImage[] = "normal_image";
        if (addImage(aiTextureType_NORMALS, kImage)) {
            ShadingNode normal{"normal_map", "normalmap", {}, {}};
            connect(make_, normal, "in", kImage);
            connect(make_, surface_, "normal", normal.name);
            nodes_.push_back(std::move(normal));
        }
    }

    const AttributeMaker& make_;
    const ImageNodes& images_;
    const aiMaterial& material_;
    ShadingNode surface_{kSurfaceName, "standard_surface", {}, {}};
    std::vector<ShadingNode> nodes_;
};

}  // namespace

SuiteHandle makeNetworkMaterial(const AttributeMaker& make,
                                const ImageNodes& images,
                                const aiMaterial& material) {
    Network network(make, images, material);
    network.connectImages();
    return network.make();
}

}  // namespace AssimpImport
