// SPDX-License-Identifier: Apache-2.0
#include "Scene/SceneLocation.h"

#include <utility>

namespace ovscene {

namespace OvAttribute = Sylvar3::internal::OvAttribute;

SceneLocation::SceneLocation(GeometryProducerPtr producer, std::string name, std::int64_t place)
    : producer_(std::move(producer)), name_(std::move(name)), place_(place) {}

GroupAttribute SceneLocation::attributes() const {
    return OvAttribute::castAttribute<GroupAttribute>(producer_->getAttribute(""));
}

std::string SceneLocation::errorMessage() const {
    return OvAttribute::castAttribute<SYLVAR::StringAttribute>(
               producer_->getAttribute("errorMessage"))
        .getValue("");
}

}  // namespace ovscene
