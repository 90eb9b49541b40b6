// SPDX-License-Identifier: Apache-2.0
#include "support/FakeProducer.h"
#include "support/StaticScene.h"
#include "unit/Materials/Materials.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <stdexcept>

using namespace ovtest;
using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;

namespace {

const char* const kPaint = R"({"surfaceShader": "paint"})";
const char* const kSteel = R"({"surfaceShader": "steel"})";

using FakePtr = boost::intrusive_ptr<FakeProducer>;

/// A location of that path with that material; nothing else knows of it.
FakePtr location(const std::string& path, const char* material, FakePtr above = nullptr) {
    FakePtr made(new FakeProducer(path, std::move(above)));
    if (material) {
        made->set("material", written(material));
    }
    return made;
}

GroupAttribute flattened(const GeometryProducerPtr& producer,
                         const Names& terminals = {"surface"}) {
    return GetFlattenedMaterialAttr(producer, terminals);
}

class FlattenedLocation : public testing::Test {
protected:
    FlattenedLocation() { EmptyFlattenedMaterialCache(); }
    ~FlattenedLocation() override { EmptyFlattenedMaterialCache(); }
};

using FlattenedCache = FlattenedLocation;

}  // namespace

TEST_F(FlattenedLocation, MergesItsMaterialWithThoseAboveTheNearestFirst) {
    const auto scene = StaticScene()
                           .set("/root", "material", written(R"({"a": "root", "c": "root"})"))
                           .set("/root/x", "material", written(R"({"a": "x", "b": "x"})"))
                           .set("/root/x/y/z", "material", written(R"({"a": "z"})"));
    EXPECT_THAT(flattened(scene.open("/root/x/y/z")),
                IsWritten(R"({"a": "z", "b": "x", "c": "root"})"));
    EXPECT_THAT(flattened(scene.open("/root/x/y")),
                IsWritten(R"({"a": "x", "b": "x", "c": "root"})"));
}

TEST_F(FlattenedLocation, WalksToTheTopOfTheTreeAndNotToAName) {
    const FakePtr top = location("/above/root", kSteel);
    EXPECT_THAT(flattened(location("/above/root/a", nullptr, top)), IsWritten(kSteel));
}

TEST_F(FlattenedLocation, GivesNoNumberToOnesWithoutAMaterial) {
    const char* const network =
        R"({"style": "network", "nodes": {"a": {}}, "terminals": {"bump": "a"}})";
    const FakePtr top = location("/root", network);
    const FakePtr number = location("/root/a", "1", location("/root", network));
    const FakePtr leaf = location("/root/a/b",
                                  R"({"style": "network", "terminals": {"surface": "b"}})",
                                  location("/root/a", nullptr, top));
    const char* const expected = R"({
        "style": "network",
        "nodes": {"a:1": {"name": "a:1"}},
        "terminals": {"surface": "b:0", "bump": "a:1"}
    })";
    EXPECT_THAT(flattened(leaf, {"surface", "bump"}), IsWritten(expected));
    EXPECT_THAT(flattened(number, {"bump"}), IsWritten(network));
}

TEST_F(FlattenedLocation, CountsAnEmptyMaterialForItIsOne) {
    EXPECT_THAT(flattened(location(
                    "/root/a", "{}", location("/root", R"({"style": "network", "nodes": {"a": {}},
                                                         "terminals": {"surface": "a"}})"))),
                IsWritten(R"({
                    "style": "network",
                    "nodes": {"a:1": {"name": "a:1"}},
                    "terminals": {"surface": "a:1"}
                })"));
}

TEST_F(FlattenedLocation, GivesTheMinimizedMaterialWhenItIsTheOnlyOne) {
    const FakePtr leaf = location("/root/a",
                                  R"({
                                      "info": 1, "style": "network", "nodes": {"a": {"name": "b"}},
                                      "interface": {"p": {"src": "a.x"}},
                                      "terminals": {"volume": "a"}
                                  })",
                                  location("/root", nullptr));
    EXPECT_THAT(flattened(leaf), IsWritten(R"({
                    "style": "network", "nodes": {"a": {"name": "b"}}, "terminals": {"volume": "a"}
                })"));
}

TEST_F(FlattenedLocation, GivesAClassicMaterialItselfWhenItIsTheOnlyOne) {
    const FakePtr leaf = location("/root", kPaint);
    EXPECT_EQ(leaf->getAttribute("material").handle(), flattened(leaf).handle());
}

TEST_F(FlattenedLocation, LosesAnInterfaceWithoutAParameterBeforeTheMerge) {
    const FakePtr top = location("/root", R"({
        "style": "network",
        "interface": {"p": {"src": "a.x"}, "q": {"src": "a.y"}}, "parameters": {"q": 1},
        "terminals": {"surface": "a"}
    })");
    EXPECT_THAT(flattened(location("/root/a", R"({"style": "network"})", top)), IsWritten(R"({
                    "style": "network",
                    "interface": {"q:1": {"src": "a:1.y"}}, "parameters": {"q:1": 1},
                    "terminals": {"surface": "a:1"}
                })"));
}

TEST_F(FlattenedLocation, WithoutAnyMaterialIsNull) {
    EXPECT_FALSE(flattened(location("/root/a", nullptr, location("/root", "7"))));
}

TEST_F(FlattenedCache, RemembersOneResultForAPathWhateverTheScene) {
    const GroupAttribute first = flattened(location("/root/a", kPaint));
    EXPECT_EQ(first.handle(), flattened(location("/root/a", kSteel)).handle());
    EXPECT_THAT(first, IsWritten(kPaint));
    EXPECT_THAT(flattened(location("/root/b", kSteel)), IsWritten(kSteel));
}

TEST_F(FlattenedCache, RemembersOneResultForAPathWhateverTheTerminals) {
    const char* const text = R"({"style": "network", "terminals": {"surface": "a", "bump": "b"}})";
    const FakePtr leaf = location("/root/a", text, location("/root", text));
    const char* const surface = R"({"style": "network", "terminals": {"surface": "a:0"}})";
    EXPECT_THAT(flattened(leaf, {"surface"}), IsWritten(surface));
    EXPECT_THAT(flattened(leaf, {"bump"}), IsWritten(surface));
    EmptyFlattenedMaterialCache();
    const char* const bump = R"({"style": "network", "terminals": {"bump": "b:0"}})";
    EXPECT_THAT(flattened(leaf, {"bump"}), IsWritten(bump));
    EXPECT_THAT(flattened(leaf, {"surface"}), IsWritten(bump));
}

TEST_F(FlattenedCache, RemembersThatThereIsNoMaterial) {
    EXPECT_FALSE(flattened(location("/root/a", nullptr)));
    EXPECT_FALSE(flattened(location("/root/a", kPaint)));
}

TEST_F(FlattenedCache, ReadsNothingOfALocationThatItKnows) {
    flattened(location("/root/a", kPaint));
    const FakePtr again = location("/root/a", kPaint);
    again->whenRead = [] { FAIL() << "was read"; };
    flattened(again);
}

TEST_F(FlattenedCache, DoesNotRememberTheLocationsOnTheWay) {
    const FakePtr top = location("/root", kPaint);
    flattened(location("/root/a", nullptr, top));
    EXPECT_THAT(flattened(location("/root", kSteel)), IsWritten(kSteel));
}

TEST_F(FlattenedCache, WalksAnewOnceItIsEmptied) {
    flattened(location("/root/a", kPaint));
    flattened(location("/root/b", kPaint));
    EmptyFlattenedMaterialCache();
    EXPECT_THAT(flattened(location("/root/a", kSteel)), IsWritten(kSteel));
    EXPECT_THAT(flattened(location("/root/b", kSteel)), IsWritten(kSteel));
    EXPECT_THAT(flattened(location("/root/a", kPaint)), IsWritten(kSteel));
}

TEST_F(FlattenedCache, MayBeEmptiedWhenItIsEmpty) {
    EmptyFlattenedMaterialCache();
    EmptyFlattenedMaterialCache();
    EXPECT_THAT(flattened(location("/root", kPaint)), IsWritten(kPaint));
}

TEST_F(FlattenedCache, HoldsItsResultsUntilItIsEmptied) {
    const FakePtr leaf = location("/root", R"({"style": "network", "nodes": {}})");
    OvAttributeStruct* const remembered = flattened(leaf).handle();
    EXPECT_EQ(remembered, flattened(leaf).handle());
}

TEST_F(FlattenedCache, HoldsNoLocation) {
    const FakePtr top = location("/root", kPaint);
    const FakePtr leaf = location("/root/a", kSteel, top);
    flattened(leaf);
    EXPECT_EQ(1, static_cast<int>(leaf->use_count()));
    EXPECT_EQ(2, static_cast<int>(top->use_count()));
}

TEST_F(FlattenedCache, IsNotLockedWhileLocationsAreReadAndTakesTheLaterResult) {
    const FakePtr outer = location("/root", kPaint);
    const FakePtr inner = location("/root", kSteel);
    outer->whenRead = [&] { EXPECT_THAT(flattened(inner), IsWritten(kSteel)); };
    EXPECT_THAT(flattened(outer), IsWritten(kPaint));
    EXPECT_THAT(flattened(inner), IsWritten(kPaint));
}

TEST_F(FlattenedCache, MayBeEmptiedWhileLocationsAreRead) {
    const FakePtr leaf = location("/root", kPaint);
    leaf->whenRead = [] { EmptyFlattenedMaterialCache(); };
    EXPECT_THAT(flattened(leaf), IsWritten(kPaint));
    EXPECT_THAT(flattened(location("/root", kSteel)), IsWritten(kPaint));
}

TEST_F(FlattenedCache, IsAsItWasWhenAReadFails) {
    const FakePtr leaf = location("/root/a", kPaint, location("/root", kSteel));
    flattened(location("/root/b", kSteel));
    leaf->whenRead = [] { throw std::runtime_error("unreadable"); };
    EXPECT_THROW(flattened(leaf), std::runtime_error);
    EXPECT_THAT(flattened(location("/root/b", kPaint)), IsWritten(kSteel));
    EXPECT_THAT(flattened(location("/root/a", kSteel)), IsWritten(kSteel));
}
