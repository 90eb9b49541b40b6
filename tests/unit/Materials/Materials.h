// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/FlattenedMaterial.h>

#include "support/WrittenAttributes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace ovtest {

using Names = std::vector<std::string>;
using Texts = std::vector<std::string>;

/// The materials that are written, the nearest first, as one.
inline SYLVAR::GroupAttribute merged(const Texts& materials, const Names& terminals = {"surface"}) {
    std::vector<SYLVAR::GroupAttribute> groups;
    for (const std::string& material : materials) {
        groups.push_back(writtenGroup(material));
    }
    return SYLVAR::GetFlattenedMaterialAttr(groups, terminals);
}

}  // namespace ovtest
