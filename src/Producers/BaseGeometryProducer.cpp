// SPDX-License-Identifier: Apache-2.0
#include "Producers/BaseGeometryProducer.h"

#include "Producers/PathParts.h"

#include <cstring>
#include <stdexcept>
#include <string_view>
#include <typeinfo>
#include <utility>

namespace SYLVAR {
namespace {

using Names = Sylvar3::internal::OvAttribute::SampleAccessor<StringAttribute>;

std::string joined(const std::string& path, std::string_view name) {
    std::string result;
    result.reserve(path.size() + 1 + name.size());
    return std::move(result.append(path).append(1, '/').append(name));
}

/// The place of the name in the first sample that has it; -1 when none has.
std::int64_t placeOf(const char* name, const Names& names) {
    const std::int64_t count = names.getNumberOfValues();
    for (std::int64_t sample = 0; sample < names.getNumberOfTimeSamples(); ++sample) {
        const char* const* const values = names.getSample(sample);
        for (std::int64_t i = 0; i < count; ++i) {
            if (std::strcmp(values[i], name) == 0) {
                return i;
            }
        }
    }
    return -1;
}

}  // namespace

BaseGeometryProducer::BaseGeometryProducer(std::string path,
                                           LocationData location,
                                           std::int64_t index,
                                           GeometryProducerPtr itsParent)
    : GeometryProducer(std::move(itsParent)),
      path_(std::move(path)),
      locationData_(std::move(location)),
      index_(index),
      attrs_(locationData_.getAttrs()) {}

void BaseGeometryProducer::getAttributeNames(std::set<std::string>* names) {
    if (!names) {
        return;
    }
    for (std::int64_t i = 0, count = attrs_.getNumberOfChildren(); i < count; ++i) {
        names->insert(attrs_.getChildName(i));
    }
}

StringAttribute BaseGeometryProducer::getPotentialChildren() {
    return locationData_.getPotentialChildren();
}

Attribute BaseGeometryProducer::getAttribute(const char* name) {
    if (!name || !*name) {
        return attrs_;
    }
    return attrs_.getChildByName(name);
}

std::string BaseGeometryProducer::getName() {
    return lastPathPart(path_);
}

std::string BaseGeometryProducer::getFullName() {
    return path_;
}

std::string BaseGeometryProducer::getHash() {
    return locationData_.getHash().str();
}

GeometryProducerPtr BaseGeometryProducer::getChildByName(const char* name, bool evict) {
    const std::string_view wanted = name ? name : "";
    if (wanted == "..") {
        return parent;
    }
    if (wanted == ".") {
        return this;
    }
    if (wanted.find('/') != std::string_view::npos) {
        throw std::runtime_error("getChildByName does not support deep child lookups");
    }
    const std::int64_t place = name ? placeOf(name, Names(getPotentialChildren())) : -1;
    if (place < 0) {
        return nullptr;
    }
    std::string path = joined(path_, wanted);
    LocationData location = cook(path, evict);
    if (!location.doesLocationExist()) {
        return nullptr;
    }
    return make(std::move(path), std::move(location), place, this);
}

GeometryProducerPtr BaseGeometryProducer::getFirstChild(bool evict) {
    return firstOf(Names(getPotentialChildren(), 0.0F), 0, path_, *this, evict);
}

GeometryProducerPtr BaseGeometryProducer::getNextSibling(bool evict) {
    if (!parent) {
        return nullptr;
    }
    GeometryProducer& above = *parent;
    const Names names(above.getPotentialChildren(), 0.0F);
    if (typeid(above) == typeid(*this)) {
        const std::string& path = static_cast<const BaseGeometryProducer&>(above).path_;
        return firstOf(names, index_ + 1, path, above, evict);
    }
    return firstOf(names, index_ + 1, above.getFullName(), above, evict);
}

/// The first of the named children, from one place on, that exists.
GeometryProducerPtr BaseGeometryProducer::firstOf(const Names& names,
                                                  std::int64_t from,
                                                  const std::string& above,
                                                  GeometryProducer& itsParent,
                                                  bool evict) {
    for (std::int64_t i = from, count = names.end() - names.begin(); i < count; ++i) {
        std::string path = joined(above, names.getNearest()[i]);
        LocationData location = cook(path, evict);
        if (location.doesLocationExist()) {
            return make(std::move(path), std::move(location), i, &itsParent);
        }
    }
    return nullptr;
}

}  // namespace SYLVAR
