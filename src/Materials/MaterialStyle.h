// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupAttribute.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What the readers of materials share. Pure; any thread.
namespace SYLVAR {

using Sylvar3::internal::OvAttribute::Attribute;
using Sylvar3::internal::OvAttribute::GroupAttribute;
using Sylvar3::internal::OvAttribute::StringAttribute;

/// The children of a group that is being made.
using ChildList = std::vector<GroupAttribute::Child>;

/// Whether the string "style" reads "network". Anything else is a classic material, null too.
bool isNetworkMaterial(const GroupAttribute& material);

/// The value at time 0; empty when there is none.
std::string textOf(const StringAttribute& attribute);

/// The two texts that one separator parts; nothing when there is none, or more than one.
using TextPair = std::pair<std::string, std::string>;
bool splitInTwo(const std::string& text, const std::string& separator, TextPair& parts);

}  // namespace SYLVAR
