// SPDX-License-Identifier: Apache-2.0
#include "Scene/SceneProducer.h"

#include <OvSylvarProducers/StaticGeometryProducer.h>
#include <SylvarPlatform/DelimiterCodec.h>

#include <cstdint>
#include <sstream>
#include <string>

namespace ovscene {
namespace {

namespace OvAttribute = Sylvar3::internal::OvAttribute;
using SYLVAR::CreateStaticGeometryProducer;
using SYLVAR::GeometryProducerPtr;

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

/// Made step by step: a producer's own steps take no name that is stored with a dot in it.
GeometryProducerPtr staticProducerAt(const std::string& path, GroupAttribute location) {
    std::istringstream names(path.substr(1));
    std::string name;
    std::getline(names, name, '/');
    GeometryProducerPtr producer = CreateStaticGeometryProducer("/" + name, location, nullptr);
    while (std::getline(names, name, '/')) {
        location = childNamed(location, name);
        producer =
            CreateStaticGeometryProducer(producer->getFullName() + "/" + name, location, producer);
    }
    return producer;
}

}  // namespace

GeometryProducerPtr producerOf(const SceneFile& file, const SceneWalk& walk) {
    return file.content == AttributeContent::StaticScene
               ? staticProducerAt(walk.path(),
                                  OvAttribute::castAttribute<GroupAttribute>(file.attribute))
               : walk.location().producer();
}

}  // namespace ovscene
