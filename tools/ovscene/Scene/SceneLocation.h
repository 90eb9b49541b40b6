// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/GeometryProducer.h>
#include <OvSylvarProducers/suites/Scene.hpp>
#include <SylvarPlatform/GroupAttribute.h>
#include <SylvarPlatform/SylvarRuntime.h>

#include <cstdint>
#include <memory>
#include <string>

namespace ovscene {

using SYLVAR::Suites::Location;
using Sylvar3::internal::OvAttribute::GroupAttribute;

class SceneLocation;
using SceneLocationPtr = std::shared_ptr<const SceneLocation>;

/// One location of a scene, as the host's tables give it, and the steps to its neighbours.
///
/// Immutable; any thread may use it, and hand it on. What it holds of the tables is asked alone,
/// which any number of threads may do at once.
class SceneLocation {
public:
    virtual ~SceneLocation() = default;
    SceneLocation(const SceneLocation&) = delete;
    SceneLocation& operator=(const SceneLocation&) = delete;

    /// The decoded name: any bytes.
    virtual std::string name() const = 0;

    /// The string attribute "type"; empty when there is none.
    std::string type() const { return text("type"); }

    /// All attributes; null when there are none.
    const GroupAttribute& attributes() const { return attributes_; }

    /// The attribute of that name, dotted names included; null when absent.
    Sylvar3::internal::OvAttribute::Attribute attribute(const std::string& name) const;

    /// What is wrong with the location, from its string attribute "errorMessage"; empty when
    /// nothing is.
    std::string errorMessage() const { return text("errorMessage"); }

    /// What the library's own functions take for it. That of a static scene knows no locations
    /// above it, and has its name alone for a path.
    SYLVAR::GeometryProducerPtr producer() const;

    /// What the host's tables take for it, borrowed. Never null.
    OvSgIteratorStruct* handle() const { return location_.handle(); }

    /// The client of the runtime with which the calling thread cooks; empty for a static scene.
    std::shared_ptr<Sylvar3::internal::OvSylvar::SylvarRuntime::Client> client() const;

    /// The places for children. In a cooked scene some may turn out to be empty.
    virtual std::int64_t childCount() const = 0;

    /// The first child that is there, from that place on; null when there is none.
    virtual SceneLocationPtr childFrom(std::int64_t place) const = 0;

    /// The next one that is there beside this location; null when there is none, and for the top.
    virtual SceneLocationPtr nextSibling() const = 0;

    /// The child of that name, decoded or encoded; null when there is none.
    virtual SceneLocationPtr childNamed(const std::string& name) const = 0;

    /// Its own place below the location above; 0 for the top.
    virtual std::int64_t place() const = 0;

protected:
    /// The location must not be the absent one.
    explicit SceneLocation(Location location);

    const Location& location() const { return location_; }

private:
    std::string text(const char* name) const;

    Location location_;
    GroupAttribute attributes_;  // asked for once, since every walk reads them
};

/// The top of a static scene, /root. A step costs the same whatever the place: each location has a
/// producer of its own that knows neither siblings nor parents, so a walk over millions of siblings
/// or thousands of levels keeps no path that grows with it. A child that is no group is a location
/// without attributes and without children, and so is a null group.
SceneLocationPtr staticTopLocation(const GroupAttribute& scene);

/// A location that a runtime cooks, as the top of what is walked: its neighbours are those that the
/// tables give. It must not be the absent one.
SceneLocationPtr cookedTopLocation(Location location);

}  // namespace ovscene
