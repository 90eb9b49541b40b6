// SPDX-License-Identifier: Apache-2.0
// The examples of docs/materials.md, which are what this project answers for.
#include <OvSylvarProducers/FlattenedMaterial.h>
#include <OvSylvarProducers/TextureAttributes.h>

#include "support/WrittenAttributes.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

using namespace ovtest;
using namespace SYLVAR;

namespace {

/// The JSON texts of the page, in order.
std::vector<std::string> examples() {
    std::ifstream page(OV_TEST_SOURCE_DIR "/docs/materials.md");
    std::vector<std::string> texts;
    bool isInside = false;
    for (std::string line; std::getline(page, line);) {
        if (line == "```json") {
            texts.emplace_back();
            isInside = true;
        } else if (line == "```") {
            isInside = false;
        } else if (isInside) {
            texts.back() += line + "\n";
        }
    }
    return texts;
}

}  // namespace

TEST(MaterialExamples, AreFive) {
    EXPECT_EQ(5U, examples().size());
}

TEST(MaterialExamples, OfTwoNetworksBecomeTheOneThatIsShown) {
    const std::vector<std::string> texts = examples();
    EXPECT_THAT(GetFlattenedMaterialAttr({writtenGroup(texts.at(0)), writtenGroup(texts.at(1))},
                                         {"surface", "displacement"}),
                IsWritten(texts.at(2)));
}

TEST(MaterialExamples, OfTwoNetworksLoseTheSecondOneWithoutItsDisplacement) {
    const std::vector<std::string> texts = examples();
    const GroupAttribute merged = GetFlattenedMaterialAttr(
        {writtenGroup(texts.at(0)), writtenGroup(texts.at(1))}, {"surface"});
    EXPECT_EQ(2, merged.getChild<GroupAttribute>("nodes").getNumberOfChildren());
}

TEST(MaterialExamples, OfTexturesBecomeTheAttributesThatAreShown) {
    const std::vector<std::string> texts = examples();
    EXPECT_THAT(ConvertTexturesToArbitraryAttr(writtenGroup(texts.at(3))), IsWritten(texts.at(4)));
}
