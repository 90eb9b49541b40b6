// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/GeometryProducer.h>

#include <cstdint>
#include <string>

namespace ovscene {

using SYLVAR::GeometryProducerPtr;
using SYLVAR::GroupAttribute;

/// One location of a static scene: the producer that answers for it, and the steps down.
///
/// A step costs the same whatever the place: the producer is made for the location alone and
/// knows neither siblings nor parents, so a walk over millions of siblings or thousands of levels
/// keeps no path that grows with it.
class SceneLocation {
public:
    /// A null group is a location without attributes and without children.
    SceneLocation(std::string name, const GroupAttribute& group);

    /// The decoded name: any bytes.
    const std::string& name() const { return name_; }

    std::string type() const { return producer_->getType(); }

    /// All attributes; null when there are none.
    GroupAttribute attributes() const;

    /// The attribute of that name, dotted names included; null when absent.
    SYLVAR::Attribute attribute(const std::string& name) const {
        return producer_->getAttribute(name.c_str());
    }

    std::int64_t childCount() const { return children_.getNumberOfChildren(); }

    /// Child `index`, which must be there. A child that is no group is an empty location.
    SceneLocation child(std::int64_t index) const;

    /// The place of the child with that name, decoded or encoded; -1 when there is none.
    std::int64_t indexOf(const std::string& name) const;

private:
    std::string name_;
    GroupAttribute children_;
    GeometryProducerPtr producer_;
};

}  // namespace ovscene
