// SPDX-License-Identifier: Apache-2.0
// One scene, opened in every way there is, is the same scene.
#include <OvSylvarProducers/AsyncGeometryProducer.h>
#include <OvSylvarProducers/StaticGeometryProducer.h>
#include <OvSylvarProducers/SyncGeometryProducer.h>
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>
#include <SylvarPlatform/AttributeFile.h>
#include <SylvarPlatform/SampleAccessor.h>

#include "support/OpTree.h"
#include "support/RuntimeWalk.h"
#include "support/StaticScene.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <vector>

using namespace ovtest;
using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;

namespace {

DoubleAttribute matrix(double x) {
    return DoubleAttribute({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, 0, 0, 1}, 16);
}

const GroupAttribute& scene() {
    static const GroupAttribute group = [] {
        StaticScene scene;
        scene.set("/root", "type", "group").set("/root", "xform.matrix", matrix(1));
        scene.set("/root", "renderSettings.cameraName", "/root/cam");
        for (const char* const branch : {"/root/world", "/root/props"}) {
            scene.set(branch, "type", "group").set(branch, "xform.matrix", matrix(2));
            for (int i = 0; i < 12; ++i) {
                const std::string leaf = std::string(branch) + "/leaf" + std::to_string(i);
                scene.set(leaf, "type", i % 2 == 0 ? "mesh" : "light")
                    .set(leaf, "number", i)
                    .set(leaf,
                         "motion",
                         FloatAttribute(
                             TimedSamples<float>{{0.0F, {1.0F * float(i)}}, {0.5F, {2.0F}}}));
            }
        }
        scene.at("/root/empty");
        scene.set("/root/deep/a/b/c/d/e", "type", "group");
        scene.set("/root/deep/a/b", "xform.matrix", matrix(4));
        return scene.group();
    }();
    return group;
}

GroupAttribute opTree() {
    return OpTree().op("scene", "scene", Args().set("tree", scene())).group();
}

/// What a location shows, in text.
struct Shown {
    std::string type;
    std::set<std::string> names;
    std::vector<std::string> children;
    std::string attributes;
    std::string transforms;
    std::string camera;

    friend bool operator==(const Shown& a, const Shown& b) {
        return a.type == b.type && a.names == b.names && a.children == b.children &&
               a.attributes == b.attributes && a.transforms == b.transforms && a.camera == b.camera;
    }
    friend std::ostream& operator<<(std::ostream& out, const Shown& shown) {
        return out << shown.type << ", " << shown.children.size() << " children, attributes "
                   << shown.attributes << ", transforms " << shown.transforms;
    }
};

Shown show(GeometryProducer& location) {
    Shown shown;
    shown.type = location.getType();
    location.getAttributeNames(&shown.names);
    const SampleAccessor<StringAttribute> names(location.getPotentialChildren(), 0.0F);
    shown.children.assign(names.begin(), names.end());
    if (const Attribute all = location.getAttribute(nullptr)) {
        shown.attributes = castAttribute<GroupAttribute>(all).getNumberOfChildren() == 0
                               ? ""
                               : all.getHash().str();
    }
    shown.transforms = location.getGlobalXFormGroup().getHash().str();
    shown.camera =
        castAttribute<StringAttribute>(location.getGlobalAttribute("renderSettings.cameraName"))
            .getValue("");
    return shown;
}

using Scene = std::map<std::string, Shown>;

/// Everything from a top location down, by first child and next sibling; paths by names alone,
/// since those of static siblings grow.
void collect(const GeometryProducerPtr& location, const std::string& above, Scene& found) {
    const std::string path = above + "/" + location->getName();
    found.emplace(path, show(*location));
    for (GeometryProducerPtr child = location->getFirstChild(false); child;
         child = child->getNextSibling(false)) {
        EXPECT_EQ(location, child->parent);
        collect(child, path, found);
    }
}

Scene collect(const GeometryProducerPtr& top) {
    Scene found;
    collect(top, "", found);
    return found;
}

/// A way to open the scene; the threads that then look at it at once, each from the top.
struct Way {
    const char* name;
    std::function<GeometryProducerPtr()> open;
    int threads = 1;

    friend std::ostream& operator<<(std::ostream& out, const Way& way) { return out << way.name; }
};

std::string fileOf(AttributeContent content, const Attribute& attribute, const char* name) {
    const std::string filename = std::string(OV_TEST_OUTPUT_DIR) + "/same_scene_" + name;
    EXPECT_EQ("", writeAttributeFile(attribute, content, attributeFormOf(filename), filename));
    return filename;
}

GeometryProducerPtr openFile(const char* name) {
    return CreateThreadAwareGeometryProducer(fileOf(AttributeContent::OpTree, opTree(), name),
                                             "/root");
}

GeometryProducerPtr openLoaded(const char* name) {
    const std::string stored = fileOf(AttributeContent::StaticScene, scene(), name);
    return CreateThreadAwareGeometryProducer(
        OpTree().op("load", "load", Args().set("file", stored)).group(), "/root");
}

GeometryProducerPtr openThreadAware() {
    return CreateThreadAwareGeometryProducer(opTree(), "/root");
}

GeometryProducerPtr openSync() {
    return CreateSyncGeometryProducer(
        OpTree().op("scene", "scene", Args().set("tree", scene())).open(), "/root");
}

GeometryProducerPtr openAsyncAfterACook() {
    const auto client = OpTree().op("scene", "scene", Args().set("tree", scene())).open();
    countFrom(*client, "/root");
    return CreateAsyncGeometryProducer(client, "/root");
}

const Way kWays[] = {
    {"Static", [] { return CreateStaticGeometryProducer("/root", scene(), nullptr); }},
    {"Attribute", openThreadAware},
    {"TextFile", [] { return openFile("tree.optree.json"); }},
    {"BinaryFile", [] { return openFile("tree.optree"); }},
    {"StoredText", [] { return openLoaded("scene.optree.json"); }},
    {"StoredBinary", [] { return openLoaded("scene.optree"); }},
    {"Sync", openSync},
    {"AsyncAfterACook", openAsyncAfterACook},
    {"TwoThreads", openThreadAware, 2},
    {"SixteenThreads", openThreadAware, 16},
    {"SixteenThreadsOfOneClient", openSync, 16},
};

class SameScene : public testing::TestWithParam<Way> {};

}  // namespace

TEST_P(SameScene, ShowsTheSameLocationsAttributesAndTransforms) {
    const Scene expected = collect(kWays[0].open());
    ASSERT_EQ(34U, expected.size());
    const GeometryProducerPtr top = GetParam().open();
    ASSERT_TRUE(top);
    onThreads(GetParam().threads, [&](int) { EXPECT_EQ(expected, collect(top)); });
}

TEST_P(SameScene, IsReachedByPathAndByName) {
    const Scene expected = collect(kWays[0].open());
    const GeometryProducerPtr top = GetParam().open();
    ASSERT_TRUE(top);
    onThreads(GetParam().threads, [&](int) {
        for (const auto& [path, shown] : expected) {
            const GeometryProducerPtr found = top->getProducerByPath(path, false);
            ASSERT_TRUE(found) << path;
            EXPECT_EQ(path, found->getFullName());
            EXPECT_EQ(shown, show(*found)) << path;
            for (const std::string& child : shown.children) {
                ASSERT_TRUE(found->getChildByName(child.c_str(), false)) << path << " " << child;
            }
            EXPECT_FALSE(found->getChildByName("nobody", false));
        }
    });
}

TEST_P(SameScene, HasNothingWhereThereIsNothing) {
    const GeometryProducerPtr top = GetParam().open();
    ASSERT_TRUE(top);
    for (const char* const path : {"", "/", "root/nobody", "root/world/nobody/leaf0", "world"}) {
        EXPECT_FALSE(top->getProducerByPath(path, false)) << path;
    }
    EXPECT_FALSE(top->getNextSibling(false));
    EXPECT_FALSE(top->getProducerByPath("root/empty", false)->getFirstChild(false));
}

INSTANTIATE_TEST_SUITE_P(EveryWay, SameScene, testing::ValuesIn(kWays), [](const auto& way) {
    return std::string(way.param.name);
});
