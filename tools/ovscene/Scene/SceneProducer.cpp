// SPDX-License-Identifier: Apache-2.0
#include "Scene/SceneProducer.h"

#include <OvSylvarProducers/StaticGeometryProducer.h>
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>
#include <SylvarPlatform/DelimiterCodec.h>

#include "ExitStatus.h"

#include <sstream>
#include <vector>

namespace ovscene {
namespace {

namespace OvAttribute = Sylvar3::internal::OvAttribute;
using SYLVAR::GeometryProducerPtr;

constexpr char kTopPath[] = "/root";

/// Static scenes store names encoded, and read a dot as a step into a group; cooked ones take names
/// as they read.
std::vector<std::string> spellings(const SceneFile& file, const std::string& name) {
    if (file.content == AttributeContent::StaticScene) {
        const bool hasDot = name.find('.') != std::string::npos;
        return {hasDot ? OvAttribute::DelimiterEncode(name) : name,
                OvAttribute::DelimiterEncode(name)};
    }
    return {name, OvAttribute::DelimiterDecode(name)};
}

GeometryProducerPtr childNamed(const SceneFile& file,
                               const GeometryProducerPtr& parent,
                               const std::string& name) {
    for (const std::string& spelling : spellings(file, name)) {
        const bool isOneStep = spelling.find('/') == std::string::npos;
        if (GeometryProducerPtr child =
                isOneStep ? parent->getChildByName(spelling.c_str(), false) : nullptr) {
            return child;
        }
    }
    return nullptr;
}

}  // namespace

GeometryProducerPtr topProducer(const SceneFile& file) {
    topLocation(file);  // throws what is wrong with it
    const auto group = OvAttribute::castAttribute<GroupAttribute>(file.attribute);
    if (file.content == AttributeContent::StaticScene) {
        return SYLVAR::CreateStaticGeometryProducer(kTopPath, group, nullptr);
    }
    return isOrdinaryFile(file.name)
               ? SYLVAR::CreateThreadAwareGeometryProducer(file.name, kTopPath)
               : SYLVAR::CreateThreadAwareGeometryProducer(group, kTopPath);
}

GeometryProducerPtr producerAt(const SceneFile& file,
                               const GeometryProducerPtr& top,
                               const std::string& path) {
    std::istringstream names(path.substr(path.rfind('/', 0) == 0 ? 1 : 0));
    std::string name;
    std::getline(names, name, '/');
    GeometryProducerPtr here = top;
    while (here && std::getline(names, name, '/')) {
        here = childNamed(file, here, name);
    }
    if (!here) {
        throw CommandError(ExitStatus::NotFound,
                           file.name + ": " + path + " cannot be looked at: the scene stores '" +
                               name + "' otherwise than encoded");
    }
    return here;
}

}  // namespace ovscene
