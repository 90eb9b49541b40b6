// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/AttributeFile.h>
#include <SylvarPlatform/PluginManager.h>

#include "support/HeardLogs.h"
#include "support/OpTree.h"
#include "support/RuntimeWalk.h"
#include "support/StaticScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class OpTypeExample : public testing::Test {
protected:
    using Client = std::shared_ptr<SylvarRuntime::Client>;

    OpTypeExample() {
        Sylvar3::internal::OvPluginManager::PluginManager::setSearchDirectories(
            {OV_TEST_EXAMPLE_DIR});
    }

    static Client wave(const GroupAttribute& scene, const GroupAttribute& arguments = {}) {
        return OpTree()
            .op("s", "scene", Args().set("tree", scene))
            .op("w", "sample.wave", arguments, {"s"})
            .open();
    }

    static GroupAttribute attributesAt(const Client& client, const char* path) {
        return client->cookLocation(path).getAttrs();
    }

    static std::vector<float> heightsOf(const FloatAttribute& points, float time) {
        std::vector<float> heights;
        for (std::int64_t i = 1; i < points.getNumberOfValues(); i += 3) {
            heights.push_back(points.getValue(-99.0F, i, time));
        }
        return heights;
    }

    HeardLogs logs;
};

}  // namespace

TEST_F(OpTypeExample, LaysAWaveOverTheSceneThatComesWithIt) {
    const auto read = readAttributeFile(OV_TEST_SOURCE_DIR "/examples/op_type/wave.optree.json");
    const auto tree = castAttribute<GroupAttribute>(read.attribute);
    ASSERT_TRUE(tree) << read.error;
    const auto client =
        OpTree()
            .op("s", "scene", tree.getChild<GroupAttribute>("strip.opArgs"))
            .op("w", "sample.wave", tree.getChild<GroupAttribute>("wave.opArgs"), {"s"})
            .open();
    const auto points =
        attributesAt(client, "/root/strip").getChild<FloatAttribute>("geometry.points");
    EXPECT_EQ(3, points.getTupleSize());
    EXPECT_THAT(heightsOf(points, 0.0F),
                ElementsAre(0.0F,
                            0.5F,
                            testing::FloatNear(0.0F, 1e-6F),
                            0.0F,
                            0.5F,
                            testing::FloatNear(0.0F, 1e-6F)));
    EXPECT_THAT(logs.take(), IsEmpty());
}

TEST_F(OpTypeExample, KeepsTimesAndAllThatItDoesNotChange) {
    const FloatAttribute moving({{0.0F, {1, 0, 0}}, {0.5F, {3, 2, 0}}}, 3);
    const StringAttribute note("kept");
    const GroupAttribute scene = StaticScene()
                                     .set("/root", "type", "group")
                                     .set("/root/m", "type", "mesh")
                                     .set("/root/m", "geometry.points", moving)
                                     .set("/root/m", "geometry.note", note)
                                     .set("/root/m", "geometry.normals", 1)
                                     .set("/root/m", "bound", 1)
                                     .set("/root/m/below", "type", "group")
                                     .group();
    const auto client = wave(scene, Args().set("length", 4));
    const GroupAttribute attributes = attributesAt(client, "/root/m");
    const auto points = attributes.getChild<FloatAttribute>("geometry.points");
    EXPECT_EQ(0.5F, points.getSampleTime(1));
    EXPECT_THAT(heightsOf(points, 0.0F), ElementsAre(1.0F));
    EXPECT_THAT(heightsOf(points, 0.5F), ElementsAre(1.0F));
    EXPECT_EQ(note.handle(), attributes.getChildByName("geometry.note").handle());
    EXPECT_FALSE(attributes.getChildByName("bound").isValid());
    EXPECT_FALSE(attributes.getChildByName("geometry.normals").isValid());
    EXPECT_EQ(3, countFrom(*client, "/root"));
    EXPECT_EQ(scene.getChildByName("a").handle(), attributesAt(client, "/root").handle());
}

TEST_F(OpTypeExample, LeavesAMeshWithoutPointsAlone) {
    const GroupAttribute scene =
        StaticScene().set("/root", "type", "mesh").set("/root", "geometry.points", "none").group();
    EXPECT_EQ(scene.getChildByName("a").handle(), attributesAt(wave(scene), "/root").handle());
}

TEST_F(OpTypeExample, TellsWhatIsWrongWithItsArguments) {
    const auto fault = [](const GroupAttribute& arguments) {
        return attributesAt(wave(StaticScene().set("/root", "type", "mesh").group(), arguments),
                            "/root")
            .getChild<StringAttribute>("errorMessage")
            .getValue("");
    };
    EXPECT_THAT(fault(Args().set("length", 0)),
                HasSubstr("argument \"length\": expected a positive number, found 0"));
    EXPECT_THAT(fault(Args().set("hight", 0)), HasSubstr("did you mean \"height\"?"));
    EXPECT_EQ("",
              fault(Args().set("height", DoubleAttribute(0.5)).set("length", FloatAttribute(2))));
}
