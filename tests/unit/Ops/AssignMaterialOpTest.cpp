// SPDX-License-Identifier: Apache-2.0
#include "support/LocationReading.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using testing::HasSubstr;

namespace {

StaticScene scene() {
    return StaticScene()
        .set("/root/a", "type", "mesh")
        .set("/root/b", "material.style", "network")
        .set("/root/b", "material.kept", 1)
        .set("/root/looks/brass", "material.style", "network")
        .set("/root/looks/brass", "material.gloss", 5);
}

GroupAttribute material() {
    return GroupBuilder().set("gloss", IntAttribute(2)).build();
}

std::shared_ptr<SylvarRuntime::Client> assign(const Attribute& material, const char* mode) {
    return openOver(scene(),
                    "assignMaterial",
                    Args()
                        .set("paths", std::vector<std::string>{"/root/a", "/root/b"})
                        .set("material", material)
                        .set("mode", mode));
}

}  // namespace

TEST(AssignMaterial, SetsAMaterialThatStandsInItsArguments) {
    const auto client = assign(material(), "replace");
    EXPECT_EQ(2, intAt(*client, "/root/a", "material.gloss"));
    EXPECT_EQ("mesh", textAt(*client, "/root/a", "type"));
    EXPECT_EQ(-1, intAt(*client, "/root/b", "material.kept"));
    EXPECT_EQ(5, intAt(*client, "/root/looks/brass", "material.gloss"));
}

TEST(AssignMaterial, SetsTheMaterialOfAnotherLocation) {
    const auto client = assign(StringAttribute("/root/looks/brass"), "replace");
    EXPECT_EQ(attributeAt(*client, "/root/looks/brass", "material").handle(),
              attributeAt(*client, "/root/a", "material").handle());
}

TEST(AssignMaterial, MergesOrLeavesWhatIsThere) {
    const auto merged = assign(material(), "merge");
    EXPECT_EQ(2, intAt(*merged, "/root/b", "material.gloss"));
    EXPECT_EQ(1, intAt(*merged, "/root/b", "material.kept"));
    const auto left = assign(material(), "ifMissing");
    EXPECT_EQ(-1, intAt(*left, "/root/b", "material.gloss"));
    EXPECT_EQ(2, intAt(*left, "/root/a", "material.gloss"));
}

TEST(AssignMaterial, SharesOneValueAmongAllItsLocations) {
    const auto client = assign(material(), "replace");
    EXPECT_EQ(attributeAt(*client, "/root/a", "material").handle(),
              attributeAt(*client, "/root/b", "material").handle());
}

TEST(AssignMaterial, ShowsAnErrorWhereThereIsNoMaterialToTake) {
    for (const char* const path : {"/root/nowhere", "/root/looks"}) {
        const auto client = assign(StringAttribute(path), "replace");
        EXPECT_THAT(errorAt(*client, "/root/a"),
                    HasSubstr("assignMaterial (op 2 of 2), /root/a: argument \"material\": "
                              "expected a location with a material, found none at " +
                              std::string(path)));
        EXPECT_EQ("mesh", textAt(*client, "/root/a", "type"));
    }
}

TEST(AssignMaterial, LooksForNoMaterialWhereNoneIsMissing) {
    const auto client = assign(StringAttribute("/root/nowhere"), "ifMissing");
    EXPECT_EQ("", errorAt(*client, "/root/b"));
    EXPECT_EQ(1, intAt(*client, "/root/b", "material.kept"));
    EXPECT_NE("", errorAt(*client, "/root/a"));
}

TEST(AssignMaterial, TellsWhatIsWrongWithItsArguments) {
    EXPECT_THAT(errorAt(*assign(IntAttribute(1), "replace"), "/root"),
                HasSubstr("argument \"material\": expected group or string, found int"));
    EXPECT_THAT(errorAt(*assign(StringAttribute("brass"), "replace"), "/root"),
                HasSubstr("argument \"material\": expected a location's path"));
    EXPECT_THAT(errorAt(*assign(material(), "over"), "/root"),
                HasSubstr("argument \"mode\": expected one of"));
}
