// SPDX-License-Identifier: Apache-2.0
#include "Scene/SceneLocation.h"

#include <OvSylvarProducers/ScenegraphIteratorHost.h>

#include <utility>

namespace ovscene {

namespace OvAttribute = Sylvar3::internal::OvAttribute;

SceneLocation::SceneLocation(Location location, std::string name, std::int64_t place)
    : location_(std::move(location)), name_(std::move(name)), place_(place) {}

GroupAttribute SceneLocation::attributes() const {
    return OvAttribute::castAttribute<GroupAttribute>(location_.attributes().detach());
}

OvAttribute::Attribute SceneLocation::attribute(const std::string& name) const {
    return OvAttribute::Attribute::adopt(location_.attribute(name).detach());
}

std::shared_ptr<Sylvar3::internal::OvSylvar::SylvarRuntime::Client> SceneLocation::client() const {
    return SYLVAR::OvHandleToGeometryProducer(location_.handle())->getClient();
}

}  // namespace ovscene
