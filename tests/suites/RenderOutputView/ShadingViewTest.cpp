// SPDX-License-Identifier: Apache-2.0
#include "suites/RenderOutputView/RenderOutputViewTest.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using namespace SYLVAR::Suites;
using ovtest::CountedRenderOutput;
using testing::ElementsAre;

constexpr char kMaterial[] = R"({
    "style": "network",
    "nodes": {
        "skin": {
            "name": "skin", "type": "standard_surface",
            "parameters": {"metalness": {"$float": 0.5}, "label": "wet"},
            "connections": {"base_color": "out@paint", "coat": {"colour": "rgb@dust"}}
        },
        "paint": {"name": "paint", "type": "image"},
        "dust": {"name": "dust", "type": "image"},
        "odd": {"name": "odd"}
    },
    "terminals": {"surface": "skin"}
})";

template <class T>
using ParametersOf = decltype(std::declval<T>().parameters());
template <class T>
using ConnectionsOf = decltype(std::declval<T>().connections());
template <template <class> class Asked, class T, class = void>
constexpr bool kCanBeAsked = false;
template <template <class> class Asked, class T>
constexpr bool kCanBeAsked<Asked, T, std::void_t<Asked<T>>> = true;

// A range over what one node has does not outlive a node that nobody has.
static_assert(kCanBeAsked<ParametersOf, const ShadingNode&>);
static_assert(!kCanBeAsked<ParametersOf, ShadingNode>);
static_assert(!kCanBeAsked<ConnectionsOf, ShadingNode>);

static_assert(!std::is_copy_constructible_v<ShadingNode>);
static_assert(!std::is_copy_constructible_v<ShadingNetwork>);
static_assert(std::is_nothrow_move_constructible_v<ShadingNode>);
static_assert(std::is_nothrow_move_assignable_v<ShadingNode>);
static_assert(std::is_nothrow_move_constructible_v<ShadingNetwork>);
static_assert(std::is_nothrow_move_assignable_v<ShadingNetwork>);

class ShadingView : public ovtest::RenderOutputViewTest {
protected:
    ShadingView() {
        fake.at("/root", {"a", "b"}).at("/root/a", {"c"}).at("/root/a/c").at("/root/b");
        fake.set("/root/a", "material", ovtest::written(kMaterial));
    }

    ShadingNetwork network() const {
        Expected<ShadingNetwork> nodes = output.shadingNetwork(valueOf(kMaterial));
        EXPECT_TRUE(nodes);
        return nodes ? *std::move(nodes) : ShadingNetwork();
    }
    ShadingNode node(const char* name) const { return network().node(name); }

    static std::size_t owned() { return CountedRenderOutput::handles().open(); }
};

TEST_F(ShadingView, GivesNodesByTheirNames) {
    const ShadingNetwork nodes = network();
    ASSERT_TRUE(nodes);
    const ShadingNode skin = nodes.node("skin");
    ASSERT_TRUE(skin);
    EXPECT_TRUE(skin.isValid());
    EXPECT_EQ("skin", skin.name());
    EXPECT_EQ("standard_surface", skin.type());
    EXPECT_EQ("image", nodes.node(std::string("paint")).type());
}

TEST_F(ShadingView, HasNoNodeOfAnUnknownNameNorOneThatLacksAType) {
    const ShadingNetwork nodes = network();
    EXPECT_FALSE(nodes.node("none"));
    EXPECT_FALSE(nodes.node("odd"));
    EXPECT_FALSE(nodes.node(nullptr));
}

TEST_F(ShadingView, HasTheNetworkOfALocationAlone) {
    const Expected<ShadingNetwork> its = output.shadingNetwork(open("/root/a"));
    ASSERT_TRUE(its && *its);
    EXPECT_TRUE(its->node("skin"));
    const Expected<ShadingNetwork> inherited = output.shadingNetwork(open("/root/a/c"));
    ASSERT_TRUE(inherited && *inherited) << "there, but without nodes";
    EXPECT_FALSE(inherited->node("skin"));
}

TEST_F(ShadingView, HasAnAbsentNetworkForWhatIsNoGroupAndForAnAbsentLocation) {
    for (const Expected<ShadingNetwork>& none : {output.shadingNetwork(valueOf("1")),
                                                 output.shadingNetwork(Value()),
                                                 output.shadingNetwork(Location())}) {
        ASSERT_TRUE(none);
        EXPECT_FALSE(*none);
        EXPECT_FALSE(none->node("skin"));
        EXPECT_EQ(nullptr, none->handle());
    }
}

TEST_F(ShadingView, ShowsTheParametersOfANode) {
    const ShadingNode skin = node("skin");
    EXPECT_EQ(0.5F, skin.parameter("metalness").get(0.0F));
    EXPECT_EQ("wet", skin.parameter(std::string("label")).get(""));
    EXPECT_FALSE(skin.parameter("none"));
    EXPECT_FALSE(skin.parameter(nullptr));
    Names names;
    std::vector<Kind> kinds;
    for (const auto& [name, value] : skin.parameters()) {
        names.emplace_back(name);
        kinds.push_back(value.kind());
    }
    EXPECT_THAT(names, ElementsAre("metalness", "label"));
    EXPECT_THAT(kinds, ElementsAre(Kind::Float, Kind::String));
    EXPECT_EQ(2U, skin.parameters().size());
    const ShadingNode paint = node("paint");
    EXPECT_EQ(paint.parameters().begin(), paint.parameters().end());
}

TEST_F(ShadingView, ShowsWhatDrivesTheInputsOfANode) {
    const ShadingNode skin = node("skin");
    Names found;
    for (const auto& [input, source] : skin.connections()) {
        found.push_back(std::string(input) + " " + source.name + " " + source.port + "@" +
                        source.node);
        EXPECT_TRUE(source);
    }
    EXPECT_THAT(found,
                ElementsAre("base_color base_color out@paint", "coat.colour coat.colour rgb@dust"));
    EXPECT_EQ("dust", skin.connection("coat.colour").node);
    EXPECT_FALSE(skin.connection("coat"));
    EXPECT_FALSE(skin.connection(nullptr));
    EXPECT_EQ("", skin.connection("none").node);
}

TEST_F(ShadingView, LeadsFromNodeToNode) {
    const ShadingNetwork nodes = network();
    const ShadingNode skin = nodes.node("skin");
    EXPECT_EQ("image", nodes.node(skin.connection("base_color").node).type());
}

TEST_F(ShadingView, HasRangesForAlgorithms) {
    const ShadingNode skin = node("skin");
    const auto range = skin.parameters();
    EXPECT_EQ(1, std::count_if(range.begin(), range.end(), [](const auto& parameter) {
                  return parameter.value.kind() == Kind::String;
              }));
}

TEST_F(ShadingView, TellsNothingOfAnAbsentNode) {
    const ShadingNode none;
    EXPECT_FALSE(none.isValid());
    EXPECT_EQ("", none.name());
    EXPECT_EQ("", none.type());
    EXPECT_FALSE(none.parameter("a"));
    EXPECT_FALSE(none.connection("a"));
    EXPECT_EQ(0U, none.parameters().size());
    EXPECT_EQ(none.connections().begin(), none.connections().end());
    EXPECT_EQ(nullptr, none.handle());
    EXPECT_FALSE(ShadingNetwork().node("a"));
}

TEST_F(ShadingView, TellsNothingWhenAHostThrowsWhereAllIsThereAlready) {
    const ShadingNetwork nodes = network();
    const ShadingNode skin = nodes.node("skin");
    const auto throwing = [](ShadingNodeDescriptionStruct*) -> const char* { throw 1; };
    counted.suite.getShadingNodeName = throwing;
    counted.suite.getShadingNodeType = throwing;
    counted.suite.isShadingNodeValid = [](ShadingNodeDescriptionStruct*) -> bool {
        throw std::runtime_error("fault");
    };
    counted.suite.getShadingNodeParameterCount = [](ShadingNodeDescriptionStruct*) -> unsigned {
        throw std::runtime_error("fault");
    };
    counted.suite.getShadingNodeParameter = [](ShadingNodeDescriptionStruct*,
                                               const char*) -> OvAttributeStruct* { throw 1; };
    counted.suite.getConnectionPortName =
        [](ShadingNodeConnectionDescriptionStruct*) -> const char* { throw 1; };
    counted.suite.getShadingNetworkNode =
        [](OvShadingNetworkNodesStruct*, const char*) -> ShadingNodeDescriptionStruct* { throw 1; };
    EXPECT_EQ("", skin.name());
    EXPECT_EQ("", skin.type());
    EXPECT_FALSE(skin.isValid());
    EXPECT_EQ(0U, skin.parameters().size());
    EXPECT_FALSE(skin.parameter("metalness"));
    EXPECT_FALSE(skin.connection("base_color"));
    EXPECT_FALSE(nodes.node("skin"));
}

TEST_F(ShadingView, GivesBackEachHandleWithItsOwner) {
    {
        const ShadingNetwork nodes = network();
        EXPECT_EQ(1U, owned());
        const ShadingNode skin = nodes.node("skin");
        const ShadingNode again = nodes.node("skin");
        EXPECT_NE(skin.handle(), again.handle()) << "two handles of one node";
        static_cast<void>(skin.connection("base_color"));
        EXPECT_EQ(3U, owned());
    }
    EXPECT_EQ(0U, owned());
}

TEST_F(ShadingView, KeepsANodeWhenTheNetworkEnds) {
    const ShadingNode skin = node("skin");
    EXPECT_EQ(1U, owned());
    EXPECT_EQ("standard_surface", skin.type());
    EXPECT_EQ("out", skin.connection("base_color").port);
}

TEST_F(ShadingView, MovesHandlesAndGivesBackWhatIsAssignedTo) {
    ShadingNetwork nodes = network();
    ShadingNode skin = nodes.node("skin");
    ShadingNodeDescriptionStruct* const handle = skin.handle();
    ShadingNode moved = std::move(skin);
    EXPECT_FALSE(skin);  // NOLINT(bugprone-use-after-move): what is left is told
    EXPECT_EQ("", skin.name());
    EXPECT_EQ(handle, moved.handle());
    moved = nodes.node("paint");
    EXPECT_EQ("paint", moved.name());
    nodes = network();
    EXPECT_EQ(2U, owned());
}

TEST_F(ShadingView, HandsHandlesOverByDetachAndTakesThemOverByAdopt) {
    ShadingNetwork nodes = network();
    ShadingNode skin = nodes.node("skin");
    ShadingNodeDescriptionStruct* const node = skin.detach();
    EXPECT_FALSE(skin);
    OvShadingNetworkNodesStruct* const handle = nodes.detach();
    EXPECT_FALSE(nodes);
    EXPECT_EQ("skin", output.adopt(node).name());
    EXPECT_TRUE(output.adopt(handle).node("dust"));
    EXPECT_FALSE(output.adopt(static_cast<ShadingNodeDescriptionStruct*>(nullptr)));
    EXPECT_FALSE(output.adopt(static_cast<OvShadingNetworkNodesStruct*>(nullptr)));
}

TEST_F(ShadingView, FlattensTheMaterialsOfALocationAndThoseAbove) {
    const Expected<Value> material =
        output.flattenedMaterial(open("/root/a/c"), {"surface", "displacement"});
    ASSERT_TRUE(material);
    EXPECT_EQ("skin", material->child("terminals.surface").get(""));
    for (const Expected<Value>& none : {output.flattenedMaterial(open("/root/b"), {"surface"}),
                                        output.flattenedMaterial(Location(), {"surface"})}) {
        ASSERT_TRUE(none);
        EXPECT_FALSE(*none);
    }
}

TEST_F(ShadingView, RemembersAFlattenedMaterialUntilItIsTold) {
    const Location a = open("/root/a");
    ASSERT_TRUE(output.flattenedMaterial(a, {}));
    fake.set("/root/a", "material", ovtest::written(R"({"surfaceShader": "new"})"));
    const Location changed = open("/root/a");
    EXPECT_EQ("network", output.flattenedMaterial(changed, {})->child("style").get(""));
    EXPECT_TRUE(output.forgetFlattenedMaterials());
    EXPECT_EQ("", output.flattenedMaterial(changed, {})->child("style").get(""));
}

TEST_F(ShadingView, RewritesTextures) {
    const Expected<Value> rewritten = output.texturesAsArbitrary(valueOf(R"({"dirt": "d.tx"})"));
    ASSERT_TRUE(rewritten);
    EXPECT_EQ("d.tx", rewritten->child("dirt.value").get(""));
    const Expected<Value> none = output.texturesAsArbitrary(Value());
    ASSERT_TRUE(none);
    EXPECT_FALSE(*none);
}

}  // namespace
