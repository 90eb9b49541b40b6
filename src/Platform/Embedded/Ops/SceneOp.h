// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/GroupAttribute.h>

#include "Platform/Embedded/Runtime/Op.h"

#include <memory>
#include <string>
#include <string_view>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// A static scene as an op's scene. The tree's own attribute groups are those of the locations, the
/// very same values.
class SceneBody : public OpBody {
public:
    /// Cooks the location whose path below the scene's top is this one: "" or "/name/name".
    virtual void cookBelow(std::string_view rest, LocationWriter& out) const = 0;
};

/// Writes the location of a static scene whose path below the scene's top is this one: "" or
/// "/name/name". The attribute group is the scene's own.
void cookStaticScene(const OvAttribute::GroupAttribute& tree,
                     std::string_view rest,
                     LocationWriter& out);

/// With its top location at that path.
std::unique_ptr<const SceneBody> makeScene(OvAttribute::GroupAttribute tree, std::string at);

}  // namespace Sylvar3::internal::OvSylvar::Embedded
