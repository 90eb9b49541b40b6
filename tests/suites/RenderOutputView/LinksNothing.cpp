// SPDX-License-Identifier: Apache-2.0
/// All of the view in one shared object, which is linked with nothing of ours: what is missing
/// fails the link.
#include <OvSylvarProducers/suites/RenderOutput.hpp>

#include <string>

using namespace SYLVAR::Suites;

template class SYLVAR::Suites::Expected<RenderOutput>;
template class SYLVAR::Suites::Expected<Resolution>;
template class SYLVAR::Suites::Expected<Camera>;
template class SYLVAR::Suites::Expected<ShadingNetwork>;

namespace {

template <class T>
std::size_t usesOf(const Expected<T>& answer) {
    return answer ? 1U : answer.error().message().size();
}

std::size_t usesOf(const ShadingNode& node) {
    std::size_t uses = node.name().size() + node.type().size() + (node.isValid() ? 1U : 0U);
    for (const auto& [name, value] : node.parameters()) {
        uses += name.size() + (node.parameter("a") && value ? 1U : 0U);
    }
    for (const auto& [input, source] : node.connections()) {
        uses += input.size() + (node.connection("a") && source ? 1U : 0U);
    }
    return uses + node.parameters().size();
}

std::size_t usesOf(const RenderOutput& output, Expected<ShadingNetwork> network) {
    if (!network) {
        return network.error().message().size();
    }
    ShadingNode node = network->node("a");
    const std::size_t uses = usesOf(output.adopt(node.detach()));
    return uses + (output.adopt(network->detach()) ? 1U : 0U);
}

std::size_t usesOf(const RenderOutput& output, const Location& location) {
    const Attribute attribute = location.attribute("a");
    const ProceduralStyle style = ProceduralStyle::Classic;
    return usesOf(output.resolution(location)) + usesOf(output.cameraPath(location)) +
           usesOf(output.camera(location, "a")) + usesOf(output.pixelArea(location, "a", "a")) +
           usesOf(output.relevantSampleTimes({0, 1}, 0, 1)) +
           usesOf(output.tempLocation(location, "a", "a", "a", 0)) +
           usesOf(output.tempLocation(location, "a", 0)) + usesOf(output.tilePath(location, "a")) +
           usesOf(output.flattenedMaterial(location, {"a"})) +
           usesOf(output.forgetFlattenedMaterials()) +
           usesOf(output, output.shadingNetwork(attribute)) +
           usesOf(output, output.shadingNetwork(location)) +
           usesOf(output.texturesAsArbitrary(attribute)) +
           usesOf(output.proceduralArguments(location, "a", {}, style)) +
           usesOf(output.processLocation(location, "a", "a", nullptr)) +
           usesOf(output.locationTypesWithDelegates("a")) + usesOf(output.flushPluginCaches("a")) +
           output.archString().size() + output.expandArchPath("a").size();
}

}  // namespace

extern "C" __attribute__((visibility("default"))) std::size_t usesOfTheRenderOutput(
    const OvHostTable* host,
    OvSgIteratorStruct* root);

std::size_t usesOfTheRenderOutput(const OvHostTable* host, OvSgIteratorStruct* root) {
    const Expected<Scene> scene = Scene::find(*host);
    const Expected<RenderOutput> output = RenderOutput::find(*host);
    return scene && output ? usesOf(*output, scene->share(root)) : 0U;
}
