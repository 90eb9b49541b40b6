// SPDX-License-Identifier: Apache-2.0
#include "support/StaticScene.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using ovtest::StaticScene;

namespace {

std::vector<std::string> namesOf(const GroupAttribute& group) {
    std::vector<std::string> names;
    for (std::int64_t i = 0; i < group.getNumberOfChildren(); ++i) {
        names.push_back(group.getChildName(i));
    }
    return names;
}

using Names = std::vector<std::string>;

/// The builder's table with some entries replaced, for one test.
class OwnBuilderTable {
public:
    OwnBuilderTable() : table(*kept_) { GroupBuilder::_attrSuite = &table; }
    ~OwnBuilderTable() { GroupBuilder::_attrSuite = kept_; }
    OwnBuilderTable(const OwnBuilderTable&) = delete;
    OwnBuilderTable& operator=(const OwnBuilderTable&) = delete;

    /// The table that stands behind the replaced one.
    static const OvAttributeSuite& real() { return *Attribute::_attrSuite; }

private:
    const OvAttributeSuite* const kept_ = GroupBuilder::_attrSuite;

public:
    OvAttributeSuite table;
};

int plainBuilders = 0;
int flatBuilders = 0;
int releasedBuilders = 0;

StaticScene gapped() {
    return StaticScene().set("/root", "xform", 1).at("/root/a").set("/root/a/b", "xform", 3);
}

}  // namespace

TEST(GetGlobalXFormGroup, NumbersTheTransformsFromTheTopDown) {
    const auto scene = StaticScene().set("/root", "xform", 1).set("/root/a", "xform", 2);
    const GroupAttribute found = scene.open("/root/a")->getGlobalXFormGroup();
    EXPECT_EQ((Names{"i0", "i1"}), namesOf(found));
    EXPECT_EQ(1, found.getChild<IntAttribute>("i0").getValue(0));
    EXPECT_EQ(2, found.getChild<IntAttribute>("i1").getValue(0));
}

TEST(GetGlobalXFormGroup, CountsLocationsWithoutATransformToo) {
    EXPECT_EQ((Names{"i0", "i2"}), namesOf(gapped().open("/root/a/b")->getGlobalXFormGroup()));
}

TEST(GetGlobalXFormGroup, IsAnEmptyGroupWhenThereAreNoTransforms) {
    const GroupAttribute found = StaticScene().at("/root/a").open("/root/a")->getGlobalXFormGroup();
    EXPECT_TRUE(found);
    EXPECT_EQ(0, found.getNumberOfChildren());
}

TEST(GetGlobalXFormGroup, HasGroupInheritOff) {
    EXPECT_FALSE(gapped().open("/root/a/b")->getGlobalXFormGroup().getGroupInherit());
}

TEST(GetGlobalXFormGroup, TakesTransformsOfAnyKindAsTheyAre) {
    const GroupAttribute xform({{"translate", DoubleAttribute(1)}}, true);
    const auto scene = StaticScene().set("/root", "xform", xform).set("/root/a", "xform", "text");
    const GroupAttribute found = scene.open("/root/a")->getGlobalXFormGroup();
    EXPECT_EQ(xform.getHash(), found.getChildByName("i0").getHash());
    EXPECT_EQ("text", found.getChild<StringAttribute>("i1").getValue(""));
}

TEST(GetGlobalXFormGroup, AsksForABuilderThatTakesNamesAsTheyStand) {
    const GeometryProducerPtr b = gapped().open("/root/a/b");
    OwnBuilderTable own;
    flatBuilders = plainBuilders = releasedBuilders = 0;
    own.table.createBuilderWithMode = [](std::int32_t mode) {
        flatBuilders += mode == 1;
        return OwnBuilderTable::real().createBuilderWithMode(mode);
    };
    own.table.createBuilder = [] {
        ++plainBuilders;
        return OwnBuilderTable::real().createBuilder();
    };
    own.table.releaseBuilder = [](OvGroupBuilderStruct* builder) {
        ++releasedBuilders;
        OwnBuilderTable::real().releaseBuilder(builder);
    };
    EXPECT_TRUE(b->getGlobalXFormGroup());
    EXPECT_EQ(1, flatBuilders);
    EXPECT_EQ(0, plainBuilders);
    EXPECT_EQ(1, releasedBuilders);
}

TEST(GetGlobalXFormGroup, FallsBackOnAPlainBuilder) {
    const GeometryProducerPtr b = gapped().open("/root/a/b");
    OwnBuilderTable own;
    plainBuilders = 0;
    own.table.createBuilderWithMode = [](std::int32_t) -> OvGroupBuilderStruct* { return nullptr; };
    own.table.createBuilder = [] {
        ++plainBuilders;
        return OwnBuilderTable::real().createBuilder();
    };
    EXPECT_EQ((Names{"i0", "i2"}), namesOf(b->getGlobalXFormGroup()));
    EXPECT_EQ(1, plainBuilders);
}

TEST(GetGlobalXFormGroup, IsNullWhenTheBuilderMakesAnotherKind) {
    const GeometryProducerPtr b = gapped().open("/root/a/b");
    OwnBuilderTable own;
    own.table.buildBuilder = [](OvGroupBuilderStruct*, std::int32_t) {
        return OwnBuilderTable::real().createInt(1);
    };
    EXPECT_FALSE(b->getGlobalXFormGroup());
}
