// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupAttribute.h>
#include <SylvarPlatform/SampleAccessor.h>

#include "support/OpTree.h"
#include "support/RuntimeWalk.h"
#include "support/StaticScene.h"

#include <memory>
#include <string>
#include <vector>

namespace ovtest {

/// An attribute of a location, which is cooked; null when either is not there.
inline Sylvar3::internal::OvAttribute::Attribute attributeAt(const SylvarRuntime::Client& client,
                                                             const std::string& path,
                                                             const std::string& name) {
    return client.cookLocation(path).getAttrs().getChildByName(name);
}

inline int intAt(const SylvarRuntime::Client& client,
                 const std::string& path,
                 const std::string& name,
                 int otherwise = -1) {
    using Sylvar3::internal::OvAttribute::IntAttribute;
    return Sylvar3::internal::OvAttribute::castAttribute<IntAttribute>(
               attributeAt(client, path, name))
        .getValue(otherwise);
}

inline std::string textAt(const SylvarRuntime::Client& client,
                          const std::string& path,
                          const std::string& name) {
    using Sylvar3::internal::OvAttribute::StringAttribute;
    return Sylvar3::internal::OvAttribute::castAttribute<StringAttribute>(
               attributeAt(client, path, name))
        .getValue("");
}

/// What a location says is wrong; "" when nothing is.
inline std::string errorAt(const SylvarRuntime::Client& client, const std::string& path) {
    return textAt(client, path, "errorMessage");
}

/// The doubles of the sample nearest a time.
inline std::vector<double> doublesAt(const SylvarRuntime::Client& client,
                                     const std::string& path,
                                     const std::string& name,
                                     float time = 0) {
    using namespace Sylvar3::internal::OvAttribute;
    const SampleAccessor<DoubleAttribute> values(attributeAt(client, path, name), time);
    return {values.begin(), values.end()};
}

/// The children of a group, in order; of the whole location when there is no name.
inline std::vector<std::string> namesAt(const SylvarRuntime::Client& client,
                                        const std::string& path,
                                        const std::string& name = "") {
    using namespace Sylvar3::internal::OvAttribute;
    const GroupAttribute attributes = client.cookLocation(path).getAttrs();
    const GroupAttribute group =
        name.empty() ? attributes : attributes.getChild<GroupAttribute>(name);
    std::vector<std::string> names;
    for (std::int64_t i = 0; i < group.getNumberOfChildren(); ++i) {
        names.push_back(group.getChildName(i));
    }
    return names;
}

/// All locations that are there, each before its children.
inline std::vector<std::string> pathsFrom(const SylvarRuntime::Client& client,
                                          const std::string& top = "/root") {
    std::vector<std::string> paths;
    walkFrom(client, top, [&](const std::string& path, const SylvarRuntime::LocationData&) {
        paths.push_back(path);
    });
    return paths;
}

/// A client of one op over a scene.
inline std::shared_ptr<SylvarRuntime::Client> openOver(
    const StaticScene& scene,
    const std::string& type,
    const Sylvar3::internal::OvAttribute::GroupAttribute& arguments) {
    return OpTree()
        .op("below", "scene", Args().set("tree", scene.group()))
        .op("above", type, arguments, {"below"})
        .open();
}

/// The matrix that moves by x, y, z.
inline std::vector<double> translation(double x, double y, double z) {
    return {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, y, z, 1};
}

}  // namespace ovtest
