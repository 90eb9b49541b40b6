// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/GeometryProducer.h>
#include <OvSylvarProducers/GeometryProducerGlobalAttributeProvider.h>

#include "Producers/InstanceCount.h"
#include "Producers/NumberedGroup.h"
#include "Producers/PathParts.h"

#include <algorithm>
#include <utility>

namespace SYLVAR {
namespace {

using Sylvar3::internal::OvAttribute::castAttribute;
using Sylvar3::internal::OvAttribute::getStringValue;
using Sylvar3::internal::OvSylvarServices::OvSylvarCookInterfaceUtils::getGlobalAttrGeneric;

/// Ends the ancestors that nobody else holds one by one: a chain can be too long to end in a
/// destructor that ends the next one.
void releaseChain(GeometryProducerPtr link) {
    while (link && link->use_count() == 1) {
        GeometryProducerPtr above = std::move(link->parent);
        link = std::move(above);
    }
}

}  // namespace

InstanceCount instanceCount;

GeometryProducer::GeometryProducer(GeometryProducerPtr itsParent) : parent(std::move(itsParent)) {
    instanceCount.raise();
}

GeometryProducer::~GeometryProducer() {
    instanceCount.lower();
    releaseChain(std::move(parent));
}

std::shared_ptr<SylvarRuntime::Client> GeometryProducer::getClient() {
    return {};
}

std::string GeometryProducer::getType() {
    return getStringValue(castAttribute<StringAttribute>(getAttribute("type")), {}, false);
}

GeometryProducerPtr GeometryProducer::getRootProducer() {
    GeometryProducer* top = this;
    while (top->parent) {
        top = top->parent.get();
    }
    return top;
}

Attribute GeometryProducer::getGlobalAttribute(const std::string& name) {
    GeometryProducerGlobalAttributeProvider provider(this);
    return getGlobalAttrGeneric(&provider, name, getFullName(), nullptr);
}

GeometryProducerPtr GeometryProducer::getProducerByPath(const std::string& path, bool evict) {
    PathParts parts(path);
    const std::string& first = parts.next();
    const bool isOwnName = first == getName();
    if (!isOwnName && first != "." && first != "..") {
        return nullptr;
    }
    GeometryProducerPtr here(this);
    if (!isOwnName) {
        here = here->getChildByName(first.c_str(), evict && parts.atEnd());
    }
    while (here && !parts.atEnd()) {
        const std::string& part = parts.next();
        here = here->getChildByName(part.c_str(), evict && parts.atEnd());
    }
    return here;
}

GroupAttribute GeometryProducer::getGlobalXFormGroup() {
    ChainAttributes transforms;
    for (GeometryProducer* here = this; here; here = here->parent.get()) {
        transforms.push_back(here->getAttribute("xform"));
    }
    std::reverse(transforms.begin(), transforms.end());
    return numberedGroup(transforms);
}

}  // namespace SYLVAR
