// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/GroupAttribute.h>

#include <string>
#include <vector>

namespace ovtest {

/// What a merge of materials must give, the nearest first; written rule by rule, and slowly.
Sylvar3::internal::OvAttribute::GroupAttribute mergeByTheRules(
    const std::vector<Sylvar3::internal::OvAttribute::GroupAttribute>& materials,
    const std::vector<std::string>& terminals);

}  // namespace ovtest
