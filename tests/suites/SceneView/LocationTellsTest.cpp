// SPDX-License-Identifier: Apache-2.0
#include "suites/SceneView/SceneViewTest.h"

#include <stdexcept>
#include <string>

namespace {

using namespace SYLVAR::Suites;
using Sylvar3::internal::OvAttribute::FloatAttribute;
using Sylvar3::internal::OvAttribute::IntAttribute;
using Sylvar3::internal::OvAttribute::StringAttribute;
using testing::ElementsAre;

class LocationTells : public ovtest::SceneViewTest {
protected:
    LocationTells() {
        fake.at("/root", {"a"}).at("/root/a", {"x", "y"});
        fake.set("/root", "info.weight", FloatAttribute(2.0F));
        fake.set("/root/a", "type", StringAttribute("mesh"));
        fake.set("/root/a", "geometry.points", FloatAttribute({1, 2, 3}, 3));
    }

    Location openA() const {
        Expected<Location> a = open().child("a");
        return a ? *std::move(a) : Location();
    }
};

TEST_F(LocationTells, ItsNamesAndItsType) {
    const Location a = openA();
    EXPECT_EQ("a", a.name());
    EXPECT_EQ("/root/a", a.fullName());
    EXPECT_EQ("mesh", a.type());
    EXPECT_EQ("", open().type());
}

TEST_F(LocationTells, ItsAttributesByNameAndAll) {
    const Location a = openA();
    EXPECT_EQ(Kind::Float, a.attribute("geometry.points").kind());
    EXPECT_EQ(Kind::Group, a.attribute(std::string("geometry")).kind());
    EXPECT_EQ(Kind::Null, a.attribute("geometry.normals").kind());
    EXPECT_EQ(2, a.attributes().childCount());
    EXPECT_EQ(2, a.attribute(nullptr).childCount()) << "as the empty name";
    EXPECT_THAT(a.attributeNames(),
                ElementsAre(testing::StrEq("geometry"), testing::StrEq("type")));
}

TEST_F(LocationTells, TypedValuesByTheDottedNamesOfAttributes) {
    const Location a = openA();
    EXPECT_EQ(2.0F, a.get("geometry.points", 0.0F, 1));
    EXPECT_EQ(7.0F, a.get<float>("geometry.none", 7));
    EXPECT_EQ("none", a.get("geometry.none", "none"));
    EXPECT_EQ(a.type(), a.get("type", "none"));
    EXPECT_THAT(a.values<float>("geometry.points"), ElementsAre(1, 2, 3));
    EXPECT_TRUE(a.values<double>("geometry.points").empty());
}

TEST_F(LocationTells, TheNamesOfTheChildrenThatItMayHave) {
    EXPECT_THAT(openA().potentialChildren(), ElementsAre(testing::StrEq("x"), testing::StrEq("y")));
}

TEST_F(LocationTells, AttributesOfTheLocationsAbove) {
    fake.set("/root", "visible", IntAttribute(0));
    const Expected<Value> inherited = openA().globalAttribute("visible");
    ASSERT_TRUE(inherited);
    EXPECT_EQ(0, inherited->get(1));
    const Expected<Value> none = openA().globalAttribute("none");
    ASSERT_TRUE(none);
    EXPECT_FALSE(*none);
}

TEST_F(LocationTells, TransformsByDepth) {
    fake.set("/root", "xform", IntAttribute(1)).set("/root/a", "xform", IntAttribute(2));
    const Expected<Value> chain = openA().globalXForm();
    ASSERT_TRUE(chain);
    EXPECT_EQ(1, chain->child("i0").get(0));
    EXPECT_EQ(2, chain->child("i1").get(0));
}

TEST_F(LocationTells, NothingWhenItIsAbsent) {
    const Location none;
    EXPECT_EQ("", none.name());
    EXPECT_EQ("", none.fullName());
    EXPECT_EQ("", none.type());
    EXPECT_FALSE(none.attribute("a"));
    EXPECT_FALSE(none.attributes());
    EXPECT_TRUE(none.attributeNames().empty());
    EXPECT_TRUE(none.potentialChildren().empty());
    EXPECT_TRUE(none.globalAttribute("a"));
    EXPECT_TRUE(none.globalXForm());
    EXPECT_EQ(3, none.get("a", 3));
}

TEST_F(LocationTells, NothingWhenAHostThrowsWhereAllIsThereAlready) {
    const Location a = openA();
    const auto throwing = [](OvSgIteratorStruct*) -> OvAttributeStruct* {
        throw std::runtime_error("fault");
    };
    tables.scene.sgGetName = throwing;
    tables.scene.sgGetFullName = throwing;
    tables.scene.sgGetAttributeNames = throwing;
    tables.scene.sgGetPotentialChildren = throwing;
    tables.scene.sgGetAttribute = [](OvSgIteratorStruct*, const char*) -> OvAttributeStruct* {
        throw 1;
    };
    EXPECT_EQ("", a.name());
    EXPECT_EQ("", a.fullName());
    EXPECT_EQ("", a.type());
    EXPECT_FALSE(a.attribute("geometry"));
    EXPECT_TRUE(a.attributeNames().empty());
    EXPECT_TRUE(a.potentialChildren().empty());
    EXPECT_EQ(3, a.get("type", 3));
}

TEST_F(LocationTells, AnErrorWhereThoseAboveAreAskedAndTheHostThrows) {
    const Location a = openA();
    tables.scene.sgGetGlobalXFormGroup = [](OvSgIteratorStruct*) -> OvAttributeStruct* {
        throw std::runtime_error("no transforms");
    };
    tables.scene.sgGetGlobalAttribute = [](OvSgIteratorStruct*, const char*) -> OvAttributeStruct* {
        throw std::runtime_error("no globals");
    };
    const Expected<Value> transforms = a.globalXForm();
    ASSERT_FALSE(transforms);
    EXPECT_EQ("no transforms", transforms.error().message());
    const Expected<Value> inherited = a.globalAttribute("a");
    ASSERT_FALSE(inherited);
    EXPECT_EQ("no globals", inherited.error().message());
}

}  // namespace
