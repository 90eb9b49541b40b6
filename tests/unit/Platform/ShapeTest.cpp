// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Values/Shape.h"

#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupAttribute.h>

#include "Platform/Embedded/Attributes/Values/GroupValue.h"
#include "Platform/Embedded/Attributes/Values/NameList.h"
#include "Platform/Embedded/Attributes/Values/ShapeTable.h"
#include "support/AttributeBytes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvAttribute;
using namespace Sylvar3::internal::OvAttribute::Embedded;

NameList listOf(const std::vector<std::string>& names) {
    NameList list;
    for (const std::string& name : names) {
        list.add(name);
    }
    return list;
}

NameList numberedList(int count) {
    NameList list;
    for (int i = 0; i < count; ++i) {
        list.add("name" + std::to_string(i));
    }
    return list;
}

/// A shape with the reference that came with it.
class HeldShape {
public:
    explicit HeldShape(const Shape* shape) : shape_(shape) {}
    explicit HeldShape(const NameList& names) : HeldShape(Shape::of(names)) {}
    ~HeldShape() { shape_->release(); }
    HeldShape(const HeldShape&) = delete;
    HeldShape& operator=(const HeldShape&) = delete;

    const Shape* operator->() const { return shape_; }
    const Shape* get() const { return shape_; }

private:
    const Shape* shape_;
};

const Shape* shapeOf(const Attribute& attribute) {
    return asGroup(attribute.handle())->shape;
}

TEST(Shape, KnowsItsNamesAndTheirPlaces) {
    for (const int count : {0, 1, 8, 9, 64, 65, 5000}) {
        const HeldShape shape(numberedList(count));
        EXPECT_EQ(count, shape->size());
        for (int i = 0; i < count; ++i) {
            EXPECT_EQ("name" + std::to_string(i), shape->name(i));
            EXPECT_EQ(i, shape->find("name" + std::to_string(i)));
        }
        for (const char* absent : {"", "name", "name5000", "Name0"}) {
            EXPECT_EQ(-1, shape->find(absent)) << count;
        }
    }
}

TEST(Shape, EndsEachNameInANul) {
    const HeldShape shape(listOf({"a", "", "long name"}));
    for (std::int64_t i = 0; i < shape->size(); ++i) {
        EXPECT_EQ('\0', *shape->name(i).end());
    }
}

TEST(Shape, IsOneForAllGroupsOfTheSameFewNames) {
    const GroupAttribute one({{"a", IntAttribute(1)}, {"b", IntAttribute(2)}}, false);
    const GroupAttribute two({{"a", StringAttribute("x")}, {"b", Attribute()}}, true);
    const GroupAttribute turned({{"b", IntAttribute(2)}, {"a", IntAttribute(1)}}, false);
    EXPECT_EQ(shapeOf(one), shapeOf(two));
    EXPECT_NE(shapeOf(one), shapeOf(turned));
    EXPECT_EQ(shapeOf(one), shapeOf(ovtest::readBytes(ovtest::binaryOf(one)).attribute));
}

TEST(Shape, IsOfItsOwnForEachGroupOfVeryManyNames) {
    const HeldShape shared(numberedList(64));
    EXPECT_EQ(shared.get(), HeldShape(numberedList(64)).get());
    const HeldShape own(numberedList(65));
    const HeldShape other(numberedList(65));
    EXPECT_NE(own.get(), other.get());
    EXPECT_EQ(own->digest().words[0], other->digest().words[0]);
    EXPECT_EQ(own->digest().words[1], other->digest().words[1]);
}

TEST(Shape, LivesAsLongAsAGroupThatHasIt) {
    GroupAttribute one({{"only here", IntAttribute(1)}}, false);
    GroupAttribute two({{"only here", IntAttribute(2)}}, false);
    const Shape* const shape = shapeOf(one);
    one = GroupAttribute();
    EXPECT_EQ("only here", shape->name(0));
    two = GroupAttribute();
}

constexpr OvAttributeHash kForged{{12345, 67890}};

TEST(ShapeTable, LeavesAShapeWithItsLastReference) {
    const NameList names = listOf({"first"});
    const NameList others = listOf({"second"});
    {
        const HeldShape held(ShapeTable::instance().find(names, kForged));
        const HeldShape again(ShapeTable::instance().find(names, kForged));
        EXPECT_EQ(held.get(), again.get());
    }
    // The digest is free again: what is found by it now stays in the table for the next one.
    const HeldShape held(ShapeTable::instance().find(others, kForged));
    const HeldShape again(ShapeTable::instance().find(others, kForged));
    EXPECT_EQ(held.get(), again.get());
    EXPECT_EQ("second", held->name(0));
}

TEST(ShapeTable, GivesAShapeOfItsOwnToNamesWhoseDigestAnotherListHas) {
    const NameList names = listOf({"first"});
    const NameList others = listOf({"second"});
    const HeldShape held(ShapeTable::instance().find(names, kForged));
    {
        const HeldShape own(ShapeTable::instance().find(others, kForged));
        EXPECT_NE(held.get(), own.get());
        EXPECT_EQ("second", own->name(0));
    }
    const HeldShape again(ShapeTable::instance().find(names, kForged));
    EXPECT_EQ(held.get(), again.get()) << "the end of the other one takes nothing out";
}

TEST(ShapeTable, IsNotFooledByNamesWhoseBytesAreTheSameInARow) {
    const HeldShape one(listOf({"ab", "c"}));
    const HeldShape other(listOf({"a", "bc"}));
    EXPECT_NE(one.get(), other.get());
    EXPECT_EQ("bc", other->name(1));
}

}  // namespace
