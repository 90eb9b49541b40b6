// SPDX-License-Identifier: Apache-2.0
#include "Producers/StaticGeometryProducer.h"

#include <SylvarPlatform/DelimiterCodec.h>

#include "Producers/PathParts.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

namespace SYLVAR {
namespace {

using Sylvar3::internal::OvAttribute::castAttribute;
using Sylvar3::internal::OvAttribute::DelimiterDecodeAppend;

std::string pathWithRoom(const std::string& path, std::string_view name) {
    std::string result;
    result.reserve(path.size() + 1 + name.size());
    result.append(path) += '/';
    return result;
}

std::string pathOfFirst(const std::string& path, const GroupAttribute& children) {
    const std::string_view encoded = children.getChildNameView(0);
    std::string result = pathWithRoom(path, encoded);
    DelimiterDecodeAppend(encoded, result);
    return result;
}

/// Appends a name as the list of potential children shows it: a string value ends at its first NUL.
void appendListedName(const GroupAttribute& children, std::int64_t index, std::string& text) {
    const std::size_t before = text.size();
    DelimiterDecodeAppend(children.getChildNameView(index), text);
    text.resize(std::min(text.find('\0', before), text.size()));
}

std::string pathOfSibling(const std::string& path,
                          const GroupAttribute& siblings,
                          std::int64_t index) {
    std::string result = pathWithRoom(path, siblings.getChildNameView(index));
    appendListedName(siblings, index, result);
    return result;
}

/// The place of the child that is listed as `name`, or the count of children.
std::int64_t placeOf(const std::string& name, const GroupAttribute& children) {
    const std::int64_t count = children.getNumberOfChildren();
    std::string candidate;
    for (std::int64_t i = 0; i < count; ++i) {
        candidate.clear();
        appendListedName(children, i, candidate);
        if (candidate == name) {
            return i;
        }
    }
    return count;
}

/// The decoded names, made from one text in which they stand one after the other.
StringAttribute listOfNames(const GroupAttribute& children) {
    const std::int64_t count = children.getNumberOfChildren();
    std::string text;
    std::vector<std::size_t> starts;
    starts.reserve(static_cast<std::size_t>(count));
    for (std::int64_t i = 0; i < count; ++i) {
        starts.push_back(text.size());
        DelimiterDecodeAppend(children.getChildNameView(i), text);
        text += '\0';
    }
    std::vector<const char*> names;
    names.reserve(starts.size());
    for (const std::size_t start : starts) {
        names.push_back(text.data() + start);
    }
    return castAttribute<StringAttribute>(
        Attribute::_attrSuite->createStringArray(names.data(), count, 1));
}

GroupAttribute childGroup(const GroupAttribute& children, std::int64_t index) {
    return castAttribute<GroupAttribute>(children.getChildByIndex(index));
}

}  // namespace

StaticGeometryProducer::StaticGeometryProducer(std::string path,
                                               GroupAttribute locationGroup,
                                               std::int64_t index,
                                               GeometryProducerPtr itsParent)
    : GeometryProducer(std::move(itsParent)),
      path_(std::move(path)),
      locationGroup_(std::move(locationGroup)),
      index_(index) {}

void StaticGeometryProducer::getAttributeNames(std::set<std::string>* names) {
    if (!names) {
        return;
    }
    const auto attributes = locationGroup_.getChild<GroupAttribute>("a");
    for (std::int64_t i = 0, count = attributes.getNumberOfChildren(); i < count; ++i) {
        names->insert(attributes.getChildName(i));
    }
}

StringAttribute StaticGeometryProducer::getPotentialChildren() {
    const GroupAttribute children = childGroups();
    if (!children) {
        return {};
    }
    return listOfNames(children);
}

Attribute StaticGeometryProducer::getAttribute(const char* name) {
    Attribute attributes = locationGroup_.getChildByName("a");
    if (!name || !*name) {
        return attributes;
    }
    return castAttribute<GroupAttribute>(std::move(attributes)).getChildByName(name);
}

std::string StaticGeometryProducer::getName() {
    return lastPathPart(path_);
}

std::string StaticGeometryProducer::getFullName() {
    return path_;
}

std::string StaticGeometryProducer::getHash() {
    return locationGroup_.getHash().str();
}

GeometryProducerPtr StaticGeometryProducer::getChildByName(const char* name, bool) {
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
    return name ? childNamed(wanted) : nullptr;
}

/// The key "c.name" is looked up where it stands in the path to be, which saves a string.
GeometryProducerPtr StaticGeometryProducer::childNamed(std::string_view name) {
    const std::size_t key = path_.size() + 1;
    std::string path;
    path.reserve(key + 2 + name.size());
    path.append(path_).append("/c.").append(name);
    auto group = locationGroup_.getChild<GroupAttribute>(std::string_view(path).substr(key));
    if (!group) {
        return nullptr;
    }
    path.erase(key, 2);
    return new StaticGeometryProducer(std::move(path), std::move(group), kUnknownIndex, this);
}

GeometryProducerPtr StaticGeometryProducer::getFirstChild(bool) {
    const GroupAttribute children = childGroups();
    if (children.getNumberOfChildren() == 0) {
        return nullptr;
    }
    return new StaticGeometryProducer(
        pathOfFirst(path_, children), childGroup(children, 0), 0, this);
}

GeometryProducerPtr StaticGeometryProducer::getNextSibling(bool) {
    const auto* const above = dynamic_cast<const StaticGeometryProducer*>(parent.get());
    if (!above) {
        return nullptr;
    }
    const GroupAttribute siblings = above->childGroups();
    const std::int64_t next = placeAmong(siblings) + 1;
    if (next >= siblings.getNumberOfChildren()) {
        return nullptr;
    }
    return new StaticGeometryProducer(
        pathOfSibling(path_, siblings, next), childGroup(siblings, next), next, parent);
}

std::int64_t StaticGeometryProducer::placeAmong(const GroupAttribute& siblings) {
    std::int64_t index = index_.load(std::memory_order_relaxed);
    if (index < 0) {
        index = placeOf(getName(), siblings);
        index_.store(index, std::memory_order_relaxed);
    }
    return index;
}

GeometryProducerPtr CreateStaticGeometryProducer(const std::string& path,
                                                 const GroupAttribute& group,
                                                 GeometryProducerPtr parent) {
    if (path.empty() || path.front() != '/' || !group) {
        return nullptr;
    }
    return new StaticGeometryProducer(
        path, group, StaticGeometryProducer::kUnknownIndex, std::move(parent));
}

}  // namespace SYLVAR
