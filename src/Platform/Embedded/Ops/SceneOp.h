// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/GroupAttribute.h>

#include "Platform/Embedded/Runtime/Op.h"

#include <memory>
#include <string>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// A static scene as an op's scene, with its top location at that path. The tree's own attribute
/// groups are those of the locations, the very same values.
std::unique_ptr<const OpBody> makeScene(OvAttribute::GroupAttribute tree, std::string at);

}  // namespace Sylvar3::internal::OvSylvar::Embedded
