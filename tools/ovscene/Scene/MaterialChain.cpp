// SPDX-License-Identifier: Apache-2.0
#include "Scene/MaterialChain.h"

#include <OvSylvarProducers/FlattenedMaterial.h>

#include "ExitStatus.h"
#include "Print/AttributeText.h"

#include <algorithm>
#include <cstdint>
#include <unordered_set>

namespace ovscene {
namespace {

namespace OvAttribute = Sylvar3::internal::OvAttribute;

constexpr char kShader[] = "Shader";
constexpr std::size_t kShaderLength = sizeof(kShader) - 1;

/// "surface" of "surfaceShader"; empty for other names.
std::string terminalOfShader(const std::string& name) {
    const std::size_t length = name.size() - std::min(name.size(), kShaderLength);
    return name.compare(length, std::string::npos, kShader) == 0 ? name.substr(0, length) : "";
}

}  // namespace

MaterialChain materialChain(SYLVAR::GeometryProducerPtr location,
                            const std::string& path,
                            const std::string& filename) {
    MaterialChain chain;
    std::string unusable;
    for (std::size_t length = path.size(); location; location = location->parent) {
        const Attribute attribute = location->getAttribute("material");
        const auto material = OvAttribute::castAttribute<GroupAttribute>(attribute);
        if (material) {
            chain.push_back({SYLVAR::MinimizeResolvedMaterialAttr(material), length});
        } else if (attribute && unusable.empty()) {
            unusable = "; the \"material\" of " + path.substr(0, length) + " is " +
                       kindName(attribute) + ", not a group";
        }
        length = path.rfind('/', length - 1);
    }
    if (chain.empty()) {
        throw CommandError(ExitStatus::NotFound,
                           filename + ": no material at " + path + ", nor above it" + unusable);
    }
    return chain;
}

std::string textOf(const StringAttribute& attribute) {
    return OvAttribute::getStringValue(attribute, "", false);
}

bool isNetworkMaterial(const GroupAttribute& material) {
    return textOf(material.getChild<StringAttribute>("style")) == "network";
}

std::vector<std::string> terminalsOf(const GroupAttribute& material, VisitLimit& limit) {
    const bool isNetwork = isNetworkMaterial(material);
    const auto group = isNetwork ? material.getChild<GroupAttribute>("terminals") : material;
    std::vector<std::string> terminals;
    for (std::int64_t i = 0; i < group.getNumberOfChildren(); ++i) {
        limit.count();
        const std::string name = group.getChildName(i);
        const std::string terminal = isNetwork ? name : terminalOfShader(name);
        // By its name, as a merge asks for it: a name with a dot in it is not found.
        if (!terminal.empty() && !textOf(group.getChild<StringAttribute>(name)).empty()) {
            terminals.push_back(terminal);
        }
    }
    return terminals;
}

std::vector<std::string> terminalsOf(const MaterialChain& chain, VisitLimit& limit) {
    std::unordered_set<std::string> seen;
    std::vector<std::string> terminals;
    for (const ChainMaterial& material : chain) {
        for (const std::string& terminal : terminalsOf(material.group, limit)) {
            if (seen.insert(terminal).second) {
                terminals.push_back(terminal);
            }
        }
    }
    return terminals;
}

}  // namespace ovscene
