// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/ShadingNodeDescription.h>
#include <OvSylvarProducers/suites/RenderOutputUtilsSuite.h>

#include <boost/smart_ptr/shared_ptr.hpp>

#include <utility>

/// What the nodes of a network, a node and a connection of the plain table point to.
struct OvShadingNetworkNodesStruct {
    SYLVAR::ShadingNodeDescription::Nodes nodes;
};

struct ShadingNodeDescriptionStruct {
    using Description = boost::shared_ptr<SYLVAR::ShadingNodeDescription>;

    explicit ShadingNodeDescriptionStruct(Description itsDescription) noexcept
        : description(std::move(itsDescription)) {}

    int refCount = 1;
    Description description;
};

struct ShadingNodeConnectionDescriptionStruct {
    using Description = boost::shared_ptr<SYLVAR::ShadingNodeConnectionDescription>;

    explicit ShadingNodeConnectionDescriptionStruct(Description itsDescription) noexcept
        : description(std::move(itsDescription)) {}

    int refCount = 1;
    Description description;
};

namespace SYLVAR {

/// Sets the entries of the table that give and read shading nodes.
void setShadingNodeEntries(OvRenderOutputUtilsSuite& suite);

}  // namespace SYLVAR
