// SPDX-License-Identifier: Apache-2.0
#include "suites/SceneView/SceneViewTest.h"

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using namespace SYLVAR::Suites;
using Sylvar3::internal::OvAttribute::DoubleAttribute;
using Sylvar3::internal::OvAttribute::FloatAttribute;
using Sylvar3::internal::OvAttribute::IntAttribute;
using Sylvar3::internal::OvAttribute::StringAttribute;
using testing::ElementsAre;
using testing::StrEq;

class AttributeView : public ovtest::SceneViewTest {
protected:
    /// The view of an attribute that lives elsewhere.
    template <class Made>
    Value viewOf(const Made& made) const {
        return Value::share(tables.attributes, made.handle());
    }

    Value moving() const {
        return viewOf(FloatAttribute({{0.0F, {1, 2, 3}}, {1.0F, {4, 5, 6}}, {2.0F, {7, 8, 9}}}, 3));
    }
};

/// A sample table that has to be given back, with its samples in separate places.
OvSampleTable* scattered(OvAttributeStruct* attribute,
                         std::int32_t wanted,
                         std::int32_t,
                         OvSampleTableBuffer*) {
    OvSampleTableBuffer buffer{};
    OvSampleTable* const together =
        OvGetAttributeSuite()->acquireSamples(attribute, wanted, 1, &buffer);
    if (!together) {
        return nullptr;
    }
    auto* const apart = new OvSampleTable(*together);
    auto* const samples = new const float*[static_cast<std::size_t>(together->sampleCount)];
    for (std::int64_t i = 0; i < together->sampleCount; ++i) {
        samples[i] = static_cast<const float*>(together->values) + i * together->valuesPerSample;
    }
    apart->flags = OV_SAMPLES_DISPOSE;
    apart->values = samples;
    return apart;
}

int disposed = 0;

void dispose(OvSampleTable* table) {
    ++disposed;
    delete[] static_cast<const float* const*>(table->values);
    delete table;
}

TEST_F(AttributeView, TellsItsKind) {
    EXPECT_EQ(Kind::Int, viewOf(IntAttribute(1)).kind());
    EXPECT_EQ(Kind::Float, viewOf(FloatAttribute(1)).kind());
    EXPECT_EQ(Kind::Double, viewOf(DoubleAttribute(1)).kind());
    EXPECT_EQ(Kind::String, viewOf(StringAttribute("")).kind());
    EXPECT_EQ(Kind::Group, viewOf(GroupBuilder().build()).kind());
    EXPECT_EQ(Kind::Null, Value().kind());
    EXPECT_EQ(3, moving().tupleSize());
}

TEST_F(AttributeView, GivesOneValueOfItsKindAndOtherwiseTheOtherOne) {
    EXPECT_EQ(5, viewOf(IntAttribute(5)).get(0));
    EXPECT_EQ(0.5F, viewOf(FloatAttribute(0.5F)).get(0.0F));
    EXPECT_EQ(0.25, viewOf(DoubleAttribute(0.25)).get(0.0));
    EXPECT_EQ("text", viewOf(StringAttribute("text")).get<std::string>(""));
    EXPECT_EQ(7, viewOf(FloatAttribute(0.5F)).get(7));
    EXPECT_EQ(7.0F, viewOf(DoubleAttribute(0.5)).get(7.0F));
    EXPECT_EQ(7.0, viewOf(IntAttribute(1)).get(7.0));
    EXPECT_EQ("none", viewOf(IntAttribute(1)).get<std::string>("none"));
    EXPECT_EQ("none", Value().get<std::string>("none"));
}

TEST_F(AttributeView, GivesAStringWhereALiteralIsTheOtherOne) {
    const std::string text = viewOf(StringAttribute("text")).get("none");
    EXPECT_EQ("text", text);
    EXPECT_EQ("none", viewOf(StringAttribute("text")).get("none", 1));
    EXPECT_EQ("none", viewOf(IntAttribute(1)).get("none"));
    EXPECT_EQ("", Value().get(static_cast<const char*>(nullptr)));
}

TEST_F(AttributeView, GivesTheOtherStringForOneThatIsNull) {
    tables.attributes.getNearestString =
        [](OvAttributeStruct* const*, std::int64_t, float, const char** value) {
            *value = nullptr;
            return std::uint8_t{1};
        };
    EXPECT_EQ("none", viewOf(StringAttribute("text")).get<std::string>("none"));
}

TEST_F(AttributeView, GivesTheValueAtAnIndexOfTheNearestSample) {
    EXPECT_EQ(3.0F, moving().get(0.0F, 2));
    EXPECT_EQ(6.0F, moving().get(0.0F, 2, 1.2F));
    EXPECT_EQ(-1.0F, moving().get(-1.0F, 3));
    EXPECT_EQ(-1.0F, moving().get(-1.0F, -1));
}

TEST_F(AttributeView, ShowsTheNearestSampleWhereItLies) {
    const Value points = moving();
    EXPECT_THAT(points.values<float>(), ElementsAre(1, 2, 3));
    EXPECT_THAT(points.values<float>(9.0F), ElementsAre(7, 8, 9));
    EXPECT_THAT(points.values<float>(0.5F), ElementsAre(1, 2, 3)) << "of two, the earlier one";
    EXPECT_THAT(points.values<float>(std::numeric_limits<float>::quiet_NaN()),
                ElementsAre(1, 2, 3));
    EXPECT_EQ(points.values<float>().data(), points.values<float>().data()) << "nothing is copied";
    EXPECT_EQ(2.0F, points.values<float>()[1]);
}

TEST_F(AttributeView, KeepsTheAttributeAsLongAsItsValues) {
    Values<const char*> values = viewOf(StringAttribute(Names{"x", "y"})).values<const char*>();
    const Values<const char*> copy = values;
    values = {};
    EXPECT_TRUE(values.empty());
    EXPECT_THAT(copy, ElementsAre(StrEq("x"), StrEq("y")));
}

TEST_F(AttributeView, HasNoValuesOfAnotherKind) {
    EXPECT_TRUE(moving().values<double>().empty());
    EXPECT_TRUE(moving().values<std::int32_t>().empty());
    EXPECT_TRUE(moving().values<const char*>().empty());
    EXPECT_TRUE(viewOf(GroupBuilder().build()).values<float>().empty());
    EXPECT_TRUE(Value().values<float>().empty());
    EXPECT_EQ(0U, Value().samples<float>().size());
    EXPECT_EQ(0U, moving().samples<double>().size());
}

TEST_F(AttributeView, ShowsAllSamples) {
    const Samples<float> samples = moving().samples<float>();
    ASSERT_EQ(3U, samples.size());
    EXPECT_EQ(1.0F, samples.time(1));
    EXPECT_THAT(samples[1], ElementsAre(4, 5, 6));
    EXPECT_THAT(samples.nearest(1.6F), ElementsAre(7, 8, 9));
}

TEST_F(AttributeView, ReadsSamplesThatLieApartAndGivesTheTableBack) {
    tables.attributes.acquireSamples = scattered;
    tables.attributes.disposeSamples = dispose;
    disposed = 0;
    const Value points = moving();
    EXPECT_THAT(points.values<float>(1.0F), ElementsAre(4, 5, 6));
    EXPECT_EQ(1, disposed);
    {
        const Samples<float> samples = points.samples<float>();
        EXPECT_THAT(samples[2], ElementsAre(7, 8, 9));
    }
    EXPECT_EQ(2, disposed);
    EXPECT_TRUE(points.values<double>().empty());
    EXPECT_EQ(2, disposed);
}

TEST_F(AttributeView, ShowsTheChildrenOfAGroupInTheirOrder) {
    const Value group =
        viewOf(GroupBuilder().set("b", IntAttribute(1)).set("a.c", IntAttribute(2)).build());
    Names names;
    std::vector<Kind> kinds;
    for (const auto& [name, value] : group.children()) {
        names.emplace_back(name);
        kinds.push_back(value.kind());
    }
    EXPECT_THAT(names, ElementsAre("b", "a"));
    EXPECT_THAT(kinds, ElementsAre(Kind::Int, Kind::Group));
    EXPECT_EQ(2, group.childCount());
    EXPECT_EQ("a", group.childName(1));
    EXPECT_EQ(1, group.child(0).get(0));
    EXPECT_EQ(2, group.child("a.c").get(0));
    EXPECT_EQ(1, group.child(std::string_view("bad", 1)).get(0));
}

TEST_F(AttributeView, MayEndBeforeALoopOverItsChildren) {
    int sum = 0;
    for (const auto& [name, value] :
         viewOf(GroupBuilder().set("a", IntAttribute(3)).build()).children()) {
        sum += value.get(0) + static_cast<int>(name.size());
    }
    EXPECT_EQ(4, sum);
}

TEST_F(AttributeView, HasNullsForChildrenThatAreNullOrNotThere) {
    const Value group = viewOf(GroupBuilder().set("a", FloatAttribute()).build());
    EXPECT_EQ(1, group.childCount());
    EXPECT_FALSE(group.child(0));
    EXPECT_FALSE(group.child(1));
    EXPECT_FALSE(group.child(-1));
    EXPECT_FALSE(group.child("none"));
    EXPECT_FALSE(group.child(""));
    EXPECT_EQ("", group.childName(1));
}

TEST_F(AttributeView, HasNoChildrenWhenItIsNoGroup) {
    for (const Value& value : {moving(), Value()}) {
        EXPECT_EQ(0, value.childCount());
        EXPECT_FALSE(value.child("a"));
        EXPECT_FALSE(value.child(0));
        EXPECT_EQ("", value.childName(0));
        EXPECT_EQ(value.children().begin(), value.children().end());
    }
}

TEST_F(AttributeView, CountsItsReferencesThroughCopiesMovesAndHandles) {
    Value one = viewOf(IntAttribute(5));
    Value two = one;
    Value& same = two;
    two = std::move(same);
    one = two;
    Value three = std::move(two);
    EXPECT_FALSE(two);  // NOLINT(bugprone-use-after-move): what is left is told
    EXPECT_EQ(one.handle(), three.handle());
    OvAttributeStruct* const handle = three.detach();
    EXPECT_FALSE(three);
    EXPECT_EQ(5, Value::adopt(tables.attributes, handle).get(0));
    EXPECT_EQ(5, one.get(0));
    EXPECT_FALSE(Value::share(tables.attributes, nullptr));
}

}  // namespace
