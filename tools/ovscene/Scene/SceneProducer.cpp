// SPDX-License-Identifier: Apache-2.0
#include "Scene/SceneProducer.h"

#include <OvSylvarProducers/StaticGeometryProducer.h>
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>
#include <SylvarPlatform/DelimiterCodec.h>

#include "ExitStatus.h"

#include <cstdint>
#include <sstream>

namespace ovscene {
namespace {

namespace OvAttribute = Sylvar3::internal::OvAttribute;
using SYLVAR::GeometryProducerPtr;

constexpr char kTopPath[] = "/root";

/// The child of that name, decoded or encoded; one that is no group is a location without anything.
GroupAttribute childNamed(const GroupAttribute& location, const std::string& name) {
    const auto children = location.getChild<GroupAttribute>("c");
    std::int64_t place = 0;
    while (place < children.getNumberOfChildren() && children.getChildName(place) != name &&
           OvAttribute::DelimiterDecode(children.getChildName(place)) != name) {
        ++place;
    }
    const auto child = OvAttribute::castAttribute<GroupAttribute>(children.getChildByIndex(place));
    return child ? child : GroupAttribute({}, false);
}

/// Where a producer's own steps do not lead: they take no name that is stored with a dot in it.
class StaticSteps {
public:
    explicit StaticSteps(const SceneFile& file)
        : location_(OvAttribute::castAttribute<GroupAttribute>(file.attribute)) {}

    GeometryProducerPtr operator()(const GeometryProducerPtr& parent, const std::string& name) {
        location_ = childNamed(location_, name);
        return SYLVAR::CreateStaticGeometryProducer(
            parent->getFullName() + "/" + name, location_, parent);
    }

private:
    GroupAttribute location_;
};

/// Cooked scenes take names as they read.
GeometryProducerPtr cookedStep(const GeometryProducerPtr& parent, const std::string& name) {
    for (const std::string& spelling : {name, OvAttribute::DelimiterDecode(name)}) {
        const bool isOneStep = spelling.find('/') == std::string::npos;
        if (GeometryProducerPtr child =
                isOneStep ? parent->getChildByName(spelling.c_str(), false) : nullptr) {
            return child;
        }
    }
    return nullptr;
}

/// The end of the way from the top down a path; null when a step leads nowhere.
template <class Step>
GeometryProducerPtr followed(const GeometryProducerPtr& top, const std::string& path, Step step) {
    std::istringstream names(path.substr(path.rfind('/', 0) == 0 ? 1 : 0));
    std::string name;
    std::getline(names, name, '/');  // the top's own
    GeometryProducerPtr here = top;
    while (here && std::getline(names, name, '/')) {
        here = step(here, name);
    }
    return here;
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
    const bool isStatic = file.content == AttributeContent::StaticScene;
    GeometryProducerPtr here =
        isStatic ? followed(top, path, StaticSteps(file)) : followed(top, path, cookedStep);
    if (!here) {
        throw CommandError(ExitStatus::NotFound, file.name + ": no location " + path);
    }
    return here;
}

std::string steppedPath(const SceneFile& file,
                        const GeometryProducerPtr& top,
                        const std::string& path) {
    if (file.content != AttributeContent::StaticScene) {
        return producerAt(file, top, path)->getFullName();
    }
    std::string stepped = top->getFullName();
    followed(top, path, [&stepped](const GeometryProducerPtr& here, const std::string& name) {
        const bool hasDot = name.find('.') != std::string::npos;
        stepped.append("/").append(hasDot ? OvAttribute::DelimiterEncode(name) : name);
        return here;
    });
    return stepped;
}

}  // namespace ovscene
