// SPDX-License-Identifier: Apache-2.0
#include "Scene/SceneLocation.h"

#include <OvSylvarProducers/ScenegraphIteratorHost.h>
#include <SylvarPlatform/DataAttribute.h>

#include <utility>

namespace ovscene {

namespace OvAttribute = Sylvar3::internal::OvAttribute;

SceneLocation::SceneLocation(Location location)
    : location_(std::move(location)),
      attributes_(OvAttribute::castAttribute<GroupAttribute>(location_.attributes().detach())) {}

OvAttribute::Attribute SceneLocation::attribute(const std::string& name) const {
    return OvAttribute::Attribute::adopt(location_.attribute(name).detach());
}

SYLVAR::GeometryProducerPtr SceneLocation::producer() const {
    return SYLVAR::OvHandleToGeometryProducer(location_.handle());
}

std::shared_ptr<Sylvar3::internal::OvSylvar::SylvarRuntime::Client> SceneLocation::client() const {
    return producer()->getClient();
}

std::string SceneLocation::text(const char* name) const {
    return attributes_.getChild<OvAttribute::StringAttribute>(name).getValue("");
}

}  // namespace ovscene
