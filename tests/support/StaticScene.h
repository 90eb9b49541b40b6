// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/StaticGeometryProducer.h>
#include <SylvarPlatform/GroupBuilder.h>

#include <deque>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace ovtest {

/// A scene in words, for producers to read:
///
///     StaticScene().at("/root/a").set("/root/a", "type", "mesh").open("/root/a")
///
/// Naming a location makes those above it. All locations stand below one top location.
class StaticScene {
public:
    using Attribute = Sylvar3::internal::OvAttribute::Attribute;
    using GroupAttribute = Sylvar3::internal::OvAttribute::GroupAttribute;
    using GroupBuilder = Sylvar3::internal::OvAttribute::GroupBuilder;
    using IntAttribute = Sylvar3::internal::OvAttribute::IntAttribute;
    using StringAttribute = Sylvar3::internal::OvAttribute::StringAttribute;

    StaticScene& at(const std::string& path) {
        find(path);
        return *this;
    }

    /// Sets an attribute; a dotted name makes nested groups.
    StaticScene& set(const std::string& path, const std::string& name, const Attribute& value) {
        find(path).attributes.emplace_back(name, value);
        return *this;
    }
    StaticScene& set(const std::string& path, const std::string& name, const char* value) {
        return set(path, name, StringAttribute(value));
    }
    StaticScene& set(const std::string& path, const std::string& name, int value) {
        return set(path, name, IntAttribute(value));
    }

    /// Puts any attribute where the location's group would stand.
    StaticScene& replaceBy(const std::string& path, const Attribute& value) {
        find(path).whole = value;
        return *this;
    }

    /// Puts any attribute under the location's key "a" or "c".
    StaticScene& setKey(const std::string& path, const std::string& key, const Attribute& value) {
        find(path).keys.emplace_back(key, value);
        return *this;
    }

    /// The group of the top location.
    GroupAttribute group() const {
        return Sylvar3::internal::OvAttribute::castAttribute<GroupAttribute>(groupOf(top_));
    }

    /// The top location.
    SYLVAR::GeometryProducerPtr open() const {
        return SYLVAR::CreateStaticGeometryProducer("/" + top_.name, group(), nullptr);
    }

    /// The location at `path`, reached by name, step by step.
    SYLVAR::GeometryProducerPtr open(const std::string& path) const {
        return open()->getProducerByPath(path, false);
    }

private:
    struct Location {
        std::string name;
        std::vector<std::pair<std::string, Attribute>> attributes;
        std::vector<std::pair<std::string, Attribute>> keys;
        std::deque<Location> children;
        std::optional<Attribute> whole;
    };

    Location& find(const std::string& path) {
        std::istringstream names(path.substr(1));
        std::string name;
        std::getline(names, name, '/');
        top_.name = name;
        Location* here = &top_;
        while (std::getline(names, name, '/')) {
            here = &childOf(*here, name);
        }
        return *here;
    }

    static Location& childOf(Location& parent, const std::string& name) {
        for (Location& child : parent.children) {
            if (child.name == name) {
                return child;
            }
        }
        parent.children.emplace_back().name = name;
        return parent.children.back();
    }

    static Attribute groupOf(const Location& location) {
        if (location.whole) {
            return *location.whole;
        }
        GroupBuilder builder(GroupBuilder::Mode::Flat);
        if (!location.attributes.empty()) {
            builder.set("a", attributesOf(location));
        }
        if (!location.children.empty()) {
            builder.set("c", childrenOf(location));
        }
        for (const auto& [key, value] : location.keys) {
            builder.set(key, value);
        }
        return builder.build();
    }

    static GroupAttribute attributesOf(const Location& location) {
        GroupBuilder builder;
        for (const auto& [name, value] : location.attributes) {
            builder.set(name, value);
        }
        return builder.build();
    }

    static GroupAttribute childrenOf(const Location& location) {
        GroupBuilder builder(GroupBuilder::Mode::Flat);
        for (const Location& child : location.children) {
            builder.set(child.name, groupOf(child));
        }
        return builder.build();
    }

    Location top_;
};

}  // namespace ovtest
