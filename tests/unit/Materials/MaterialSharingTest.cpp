// SPDX-License-Identifier: Apache-2.0
#include "support/MadeAttributes.h"
#include "unit/Materials/Materials.h"

using namespace ovtest;
using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;

namespace {

/// A chain of a network that drives nothing and one that drives "surface", of three nodes.
std::vector<GroupAttribute> networks() {
    return {writtenGroup(R"({"style": "network"})"), writtenGroup(R"({
                "style": "network",
                "nodes": {
                    "a": {"name": "a", "type": "paint", "parameters": {"x": [1, 2, 3]},
                          "connections": {"in": "out@b", "kept": {"deep": "out@c"}, "k": 1}},
                    "b": {"name": "b", "type": "image", "parameters": {"file": "b.tx"}},
                    "c": {"type": "noise", "connections": {"in": 7}}
                },
                "interface": {"p": {"src": "a.x"}},
                "parameters": {"p": [4, 5, 6], "q": {"deep": {"er": 1}}},
                "terminals": {"surface": "a"}
            })")};
}

template <class Made>
void expectSame(const Attribute& expected, const Made& found, const char* what) {
    EXPECT_TRUE(found) << what;
    EXPECT_EQ(expected.handle(), found.handle()) << what;
}

GroupAttribute groupAt(const GroupAttribute& group, const char* name, std::int64_t index) {
    return castAttribute<GroupAttribute>(
        group.getChild<GroupAttribute>(name).getChildByIndex(index));
}

}  // namespace

TEST(MaterialSharing, OfNetworksMakesTextsForNewNamesAlone) {
    const std::vector<GroupAttribute> materials = networks();
    const MadeAttributes made;
    const GroupAttribute result = GetFlattenedMaterialAttr(materials, {"surface"});
    // "style", the terminal, three names, one connection, one source.
    EXPECT_EQ(7, made.data());
    // The result and its four lists, three nodes, two connections, one entry of the interface.
    EXPECT_EQ(11, made.groups());
}

TEST(MaterialSharing, OfNetworksKeepsAllValuesTheSame) {
    const std::vector<GroupAttribute> materials = networks();
    const GroupAttribute& far = materials[1];
    const GroupAttribute result = GetFlattenedMaterialAttr(materials, {"surface"});
    const GroupAttribute node = groupAt(result, "nodes", 0);
    for (const char* const key : {"type", "parameters", "connections.kept", "connections.k"}) {
        expectSame(
            far.getChildByName(std::string("nodes.a.") + key), node.getChildByName(key), key);
    }
    const auto parameters = result.getChild<GroupAttribute>("parameters");
    expectSame(far.getChildByName("parameters.p"), parameters.getChildByIndex(0), "p");
    expectSame(far.getChildByName("parameters.q"), parameters.getChildByIndex(1), "q");
}

TEST(MaterialSharing, OfClassicMaterialsMakesOneGroup) {
    const GroupAttribute near = writtenGroup(R"({"a": {"x": 1}, "b": [1, 2]})");
    const GroupAttribute far = writtenGroup(R"({"c": {"y": "z"}})");
    const MadeAttributes made;
    const GroupAttribute result = GetFlattenedMaterialAttr({near, far}, {"surface"});
    EXPECT_EQ(0, made.data());
    EXPECT_EQ(1, made.groups());
    expectSame(near.getChildByName("a"), result.getChildByName("a"), "a");
    expectSame(near.getChildByName("b"), result.getChildByName("b"), "b");
    expectSame(far.getChildByName("c"), result.getChildByName("c"), "c");
}

TEST(MaterialSharing, OfOneMaterialMakesNothing) {
    const GroupAttribute only = networks()[1];
    const MadeAttributes made;
    GetFlattenedMaterialAttr({only}, {"surface"});
    EXPECT_EQ(0, made.data() + made.groups());
}

TEST(MaterialSharing, OfAClassicMaterialAmongNetworksKeepsItsTypeAndParameters) {
    const GroupAttribute classic =
        writtenGroup(R"({"surfaceShader": "paint", "surfaceParams": {"x": 1}})");
    const GroupAttribute result =
        GetFlattenedMaterialAttr({classic, writtenGroup(R"({"style": "network"})")}, {"surface"});
    const GroupAttribute node = groupAt(result, "nodes", 0);
    expectSame(classic.getChildByName("surfaceShader"), node.getChildByName("type"), "type");
    expectSame(
        classic.getChildByName("surfaceParams"), node.getChildByName("parameters"), "parameters");
}

TEST(MaterialSharing, OfAMinimizedMaterialMakesTheGroupsThatAreCutAlone) {
    const GroupAttribute material = writtenGroup(R"({
        "style": "network", "nodes": {"a": {}}, "parameters": {"p": 1, "q": 2},
        "interface": {"p": {"src": "a.x"}, "q": {"src": "a.y", "label": "Q"}}
    })");
    const MadeAttributes made;
    const GroupAttribute result = MinimizeResolvedMaterialAttr(material);
    EXPECT_EQ(0, made.data());
    // The result, its interface, and the entry with a label.
    EXPECT_EQ(3, made.groups());
}
