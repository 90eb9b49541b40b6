// SPDX-License-Identifier: Apache-2.0
#include "Scene/RenderJob.h"

#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupBuilder.h>

#include <cstdint>
#include <exception>

namespace ovscene {
namespace {

using Sylvar3::internal::OvAttribute::GroupBuilder;
using Sylvar3::internal::OvAttribute::StringAttribute;

/// Opens the scene as other commands do, for their errors.
void requireScene(const SceneFile& scene) {
    static_cast<void>(topLocation(scene));
}

Attribute asOpTree(const Attribute& staticScene) {
    return GroupBuilder()
        .set("scene.opType", StringAttribute("scene"))
        .set("scene.opArgs.tree", staticScene)
        .set("scene.opArgs.at", StringAttribute("/root"))
        .build();
}

std::vector<const char*> pointersTo(const std::vector<std::string>& texts) {
    std::vector<const char*> pointers;
    for (const std::string& text : texts) {
        pointers.push_back(text.c_str());
    }
    return pointers;
}

std::string call(const OvRenderer& renderer, const OvRenderJob& job) {
    try {
        const std::int32_t status = renderer.render(&job);
        return status == 0 ? "" : "render returns " + std::to_string(status);
    } catch (const std::exception& error) {
        return std::string("render throws: ") + error.what();
    } catch (...) {
        return "render throws what is no std::exception";
    }
}

}  // namespace

std::string render(const OvRenderer& renderer, const RenderJob& job) {
    requireScene(job.scene);
    const bool isOpTree = job.scene.content == AttributeContent::OpTree;
    const bool isByName = isOpTree && isOrdinaryFile(job.scene.name);
    const Attribute opTree = isOpTree ? job.scene.attribute : asOpTree(job.scene.attribute);
    const std::vector<const char*> options = pointersTo(job.options);
    OvRenderJob asked{};
    asked.size = sizeof asked;
    asked.threads = static_cast<std::uint32_t>(job.threads);
    asked.opTreeFile = isByName ? job.scene.name.c_str() : nullptr;
    asked.opTree = isByName ? nullptr : opTree.handle();
    asked.outputFile = job.outputFile.empty() ? nullptr : job.outputFile.c_str();
    asked.options = options.data();
    asked.optionCount = static_cast<std::uint32_t>(options.size());
    return call(renderer, asked);
}

}  // namespace ovscene
