// SPDX-License-Identifier: Apache-2.0
#include "support/RenderOutputTest.h"

using ovtest::IsWritten;
using ovtest::StaticScene;
using ovtest::written;

namespace {

class MaterialEntries : public ovtest::RenderOutputTest {
protected:
    /// A location with a network of two terminals, below one with another of its own.
    static StaticScene networks() {
        return StaticScene()
            .set("/root", "material", written(R"({"style": "network",
                "nodes": {"far": {"name": "far", "type": "t"}}, "terminals": {"light": "far"}})"))
            .set("/root/a", "material", written(R"({"style": "network",
                "nodes": {"near": {"name": "near", "type": "t"}},
                "terminals": {"surface": "near", "displacement": "near"}})"));
    }

    Attribute flattened(Handle location, const Attribute& terminals) const {
        return take(table.getFlattenedMaterialAttr(location, terminals.handle()));
    }

    /// The terminals of the two networks that a list of terminals, as it is written, leaves.
    Attribute terminalsLeft(const std::string& list) {
        table.emptyFlattenedMaterialCache();
        const Attribute material = flattened(at(networks(), "/root/a"), written(list));
        return take(OvGetAttributeSuite()->getChildByName(material.handle(), "terminals", 9));
    }
};

constexpr char kSurface[] = R"({"surface": "near:0"})";
constexpr char kDisplacement[] = R"({"displacement": "near:0"})";

}  // namespace

TEST_F(MaterialEntries, MergeTheMaterialsOfTheLocationAndThoseAboveIt) {
    StaticScene scene;
    scene.set("/root", "material", written(R"({"surfaceShader": "far", "color": 1})"))
        .set("/root/a", "material", written(R"({"surfaceShader": "near"})"));
    EXPECT_THAT(flattened(at(scene, "/root/a"), StringAttribute("surface")),
                IsWritten(R"({"surfaceShader": "near", "color": 1})"));
}

TEST_F(MaterialEntries, TakeEveryTerminalOfTheList) {
    EXPECT_THAT(terminalsLeft(R"("surface")"), IsWritten(kSurface));
    EXPECT_THAT(terminalsLeft(R"(["light", "surface"])"),
                IsWritten(R"({"surface": "near:0", "light": "far:1"})"));
}

TEST_F(MaterialEntries, TakeTheTerminalsOfTheSampleNearestTimeZero) {
    EXPECT_THAT(terminalsLeft(R"({"$string": [["surface"], ["displacement"]], "$times": [-2, 1]})"),
                IsWritten(kDisplacement));
    EXPECT_THAT(terminalsLeft(R"({"$string": [["surface"], ["displacement"]], "$times": [1, 2]})"),
                IsWritten(kSurface));
}

TEST_F(MaterialEntries, TakeTheTerminalsOfTheEarlierOfTwoSamplesThatAreAsNear) {
    EXPECT_THAT(terminalsLeft(R"({"$string": [["surface"], ["displacement"]], "$times": [-1, 1]})"),
                IsWritten(kSurface));
    EXPECT_THAT(terminalsLeft(R"({"$string": [["surface"], ["displacement"], ["light"]],
                                  "$times": [-3, -1, 1]})"),
                IsWritten(kDisplacement));
}

TEST_F(MaterialEntries, TakeNoTerminalsOfAnAttributeWithoutSamplesOrValues) {
    for (const char* const list : {R"({"$string": [], "$times": []})", R"({"$string": []})"}) {
        table.emptyFlattenedMaterialCache();
        EXPECT_THAT(flattened(at(networks(), "/root/a"), written(list)),
                    IsWritten(R"({"style": "network"})"))
            << list;
    }
}

TEST_F(MaterialEntries, GiveNullForTerminalsThatAreNoStringAndRememberNothing) {
    const Handle a = at(networks(), "/root/a");
    EXPECT_EQ(nullptr, table.getFlattenedMaterialAttr(a, nullptr));
    for (const char* const terminals : {"3", "2.5", R"({"$float": 1})", R"({"surface": "near"})"}) {
        EXPECT_FALSE(flattened(a, written(terminals)).isValid()) << terminals;
    }
    EXPECT_TRUE(flattened(a, StringAttribute("surface")).isValid());
}

TEST_F(MaterialEntries, GiveNullForTerminalsThatAreNoStringAlsoWhenAResultIsRemembered) {
    const Handle a = at(networks(), "/root/a");
    ASSERT_TRUE(flattened(a, StringAttribute("surface")).isValid());
    EXPECT_EQ(nullptr, table.getFlattenedMaterialAttr(a, nullptr));
    EXPECT_FALSE(flattened(a, IntAttribute(3)).isValid());
}

TEST_F(MaterialEntries, GiveNullWhereThereAreNoMaterials) {
    EXPECT_FALSE(flattened(at(StaticScene().at("/root/a"), "/root/a"), StringAttribute("surface"))
                     .isValid());
}

TEST_F(MaterialEntries, RememberAResultForItsPathUntilTheyAreEmptied) {
    const Handle a = at(networks(), "/root/a");
    const Attribute first = flattened(a, StringAttribute("surface"));
    EXPECT_EQ(first.getHash(), flattened(a, StringAttribute("displacement")).getHash());
    EXPECT_EQ(first.getHash(),
              flattened(at(StaticScene().at("/root/a"), "/root/a"), StringAttribute("surface"))
                  .getHash());
    table.emptyFlattenedMaterialCache();
    EXPECT_NE(first.getHash(), flattened(a, StringAttribute("displacement")).getHash());
}

TEST_F(MaterialEntries, KeepAResultGoodThatWasHandedOutBeforeTheyWereEmptied) {
    const Attribute material = flattened(at(networks(), "/root/a"), StringAttribute("surface"));
    table.emptyFlattenedMaterialCache();
    EXPECT_THAT(take(OvGetAttributeSuite()->getChildByName(material.handle(), "terminals", 9)),
                IsWritten(kSurface));
}
